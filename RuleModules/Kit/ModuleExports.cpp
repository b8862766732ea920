// The exports of a rule module. Compiled into each module.

#include "RuleModules/Kit/ModuleCatalogue.h"
#include "RuleModules/Kit/ThisModule.h"

#include <Vantrel/ModuleInterface.h>

#include <type_traits>

namespace
{

ModuleCatalogue& Catalogue()
{
    static ModuleCatalogue catalogue(ThisModule());
    return catalogue;
}

/// No exception crosses the library's boundary. The contract has no way to report one, so
/// the results are what they were when it came up.
template <typename Action>
void Guarded(Action action) noexcept
{
    try
    {
        action();
    }
    catch (...)
    {
    }
}

} // namespace

extern "C"
{
    QOX_MODULE_EXPORT void GetAllRules(PointerArray& rules)
    {
        Guarded([&rules] { Catalogue().GetAllRules(rules); });
    }

    QOX_MODULE_EXPORT void GetRule(QoxXMLNode* node, CQoxRule*& rule)
    {
        Guarded(
            [node, &rule]
            {
                if (node != nullptr)
                {
                    if (std::unique_ptr<CQoxRule> made = Catalogue().GetRule(*node))
                    {
                        rule = made.release(); // handed out raw, by contract
                    }
                }
            });
    }

    QOX_MODULE_EXPORT void SetXMLDoc(QoxXMLDocument* document)
    {
        Guarded([document] { Catalogue().SetDocument(document); });
    }

    QOX_MODULE_EXPORT void SetDBModuleList(const std::list<std::wstring>* databaseModules)
    {
        Guarded([databaseModules] { Catalogue().SetDatabaseModules(databaseModules); });
    }

    QOX_MODULE_EXPORT void GetModuleName(std::wstring& name)
    {
        Guarded([&name] { name = ThisModule().displayName; });
    }

    QOX_MODULE_EXPORT void GetModuleSummary(std::wstring& summary)
    {
        Guarded([&summary] { summary = Catalogue().Summary(); });
    }

    QOX_MODULE_EXPORT void DeleteRule(CQoxRule** rule)
    {
        Guarded([rule] { ModuleCatalogue::DeleteRule(rule); });
    }
}

static_assert(std::is_same_v<decltype(&GetAllRules), GetAllRulesFunction>);
static_assert(std::is_same_v<decltype(&GetRule), GetRuleFunction>);
static_assert(std::is_same_v<decltype(&SetXMLDoc), ModuleSetXMLDocFunction>);
static_assert(std::is_same_v<decltype(&SetDBModuleList), SetDBModuleListFunction>);
static_assert(std::is_same_v<decltype(&GetModuleName), GetModuleNameFunction>);
static_assert(std::is_same_v<decltype(&GetModuleSummary), GetModuleSummaryFunction>);
static_assert(std::is_same_v<decltype(&DeleteRule), DeleteRuleFunction>);

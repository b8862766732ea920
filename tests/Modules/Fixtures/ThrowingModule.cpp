// A rule module every export of which fails in the way that its contract forbids.

#include <Vantrel/ModuleInterface.h>

#include <stdexcept>
#include <type_traits>

namespace
{

[[noreturn]] void Fail()
{
    throw std::runtime_error("a module failed");
}

} // namespace

extern "C"
{
    QOX_MODULE_EXPORT void GetAllRules(PointerArray& rules)
    {
        rules.Add(nullptr);
        Fail();
    }

    QOX_MODULE_EXPORT void GetRule(QoxXMLNode* /*node*/, CQoxRule*& /*rule*/)
    {
        Fail();
    }

    QOX_MODULE_EXPORT void SetXMLDoc(QoxXMLDocument* /*document*/)
    {
        Fail();
    }

    QOX_MODULE_EXPORT void SetDBModuleList(const std::list<std::wstring>* /*databaseModules*/)
    {
        Fail();
    }

    QOX_MODULE_EXPORT void GetModuleName(std::wstring& /*name*/)
    {
        Fail();
    }

    QOX_MODULE_EXPORT void GetModuleSummary(std::wstring& /*summary*/)
    {
        throw 1;
    }

    QOX_MODULE_EXPORT void DeleteRule(CQoxRule** /*rule*/)
    {
        Fail();
    }
}

static_assert(std::is_same_v<decltype(&GetAllRules), GetAllRulesFunction>);
static_assert(std::is_same_v<decltype(&GetRule), GetRuleFunction>);
static_assert(std::is_same_v<decltype(&SetXMLDoc), ModuleSetXMLDocFunction>);
static_assert(std::is_same_v<decltype(&SetDBModuleList), SetDBModuleListFunction>);
static_assert(std::is_same_v<decltype(&GetModuleName), GetModuleNameFunction>);
static_assert(std::is_same_v<decltype(&GetModuleSummary), GetModuleSummaryFunction>);
static_assert(std::is_same_v<decltype(&DeleteRule), DeleteRuleFunction>);

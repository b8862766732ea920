#include <Vantrel/ModuleInterface.h>

#include <type_traits>

// What people see of the database module. It is apart from the database itself.

extern "C"
{
    QOX_MODULE_EXPORT void GetModuleName(std::wstring& name)
    {
        name = L"SQLite Rule Database";
    }

    QOX_MODULE_EXPORT void GetModuleSummary(std::wstring& summary)
    {
        summary = L"Gives the rule modules the data that their rules consult, such as materials, from the file "
                  L"VantrelRules.sqlite in the database folder or beside the module.";
    }
}

static_assert(std::is_same_v<decltype(&GetModuleName), GetModuleNameFunction>);
static_assert(std::is_same_v<decltype(&GetModuleSummary), GetModuleSummaryFunction>);

// A database module for tests of the loader. Definitions choose its exports (EXPORT_<name>)
// and whether it has a database to give (HAS_DATABASE).

#include "tests/RuleModules/Fixtures/CallRecord.h"

#include <Vantrel/ModuleInterface.h>

#include <memory>
#include <type_traits>

namespace
{

/// Two entries in whatever group is asked for; the second has twice the property of the first.
class TwoEntries final : public IRuleDatabase
{
public:
    void GetNames(const std::wstring& /*table*/, const std::wstring& group, std::list<std::wstring>& names) override
    {
        names = { L"First test " + group, L"Second test " + group };
    }

    bool GetProperty(const std::wstring& /*table*/, const std::wstring& name, const std::wstring& property,
                     double& value) override
    {
        if (property != L"density")
        {
            return false;
        }
        value = name.starts_with(L"First") ? 2.5 : 5;
        return true;
    }
};

} // namespace

extern "C"
{
#ifdef EXPORT_GetDbInterface
    QOX_MODULE_EXPORT IRuleDatabase* GetDbInterface()
    {
        RecordCall("GetDbInterface");
        return HAS_DATABASE ? std::make_unique<TwoEntries>().release() : nullptr;
    }
    static_assert(std::is_same_v<decltype(&GetDbInterface), GetDbInterfaceFunction>);
#endif

#ifdef EXPORT_DeleteDbInterface
    QOX_MODULE_EXPORT void DeleteDbInterface(IRuleDatabase* database)
    {
        RecordCall("DeleteDbInterface");
        delete static_cast<TwoEntries*>(database);
    }
    static_assert(std::is_same_v<decltype(&DeleteDbInterface), DeleteDbInterfaceFunction>);
#endif
}

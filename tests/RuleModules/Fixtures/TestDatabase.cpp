// A database module for tests of the loader. Definitions choose its exports (EXPORT_<name>)
// and whether it has a database to give (HAS_DATABASE).

#include "tests/RuleModules/Fixtures/CallRecord.h"

#include <Vantrel/ModuleInterface.h>

#include <memory>
#include <type_traits>

namespace
{

/// Two materials in whatever group is asked for.
class TwoMaterials final : public IRuleDatabase
{
public:
    void GetMaterialNames(const std::wstring& group, std::list<std::wstring>& names) override
    {
        names = { L"First test " + group, L"Second test " + group };
    }

    bool GetMaterialProperty(const std::wstring& /*material*/, const std::wstring& property, double& value) override
    {
        if (property != L"density")
        {
            return false;
        }
        value = 2.5;
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
        return HAS_DATABASE ? std::make_unique<TwoMaterials>().release() : nullptr;
    }
    static_assert(std::is_same_v<decltype(&GetDbInterface), GetDbInterfaceFunction>);
#endif

#ifdef EXPORT_DeleteDbInterface
    QOX_MODULE_EXPORT void DeleteDbInterface(IRuleDatabase* database)
    {
        RecordCall("DeleteDbInterface");
        delete static_cast<TwoMaterials*>(database);
    }
    static_assert(std::is_same_v<decltype(&DeleteDbInterface), DeleteDbInterfaceFunction>);
#endif
}

#include "ModuleChecker/DatabaseModuleCheck.h"

#include "ModuleChecker/ModuleExports.h"
#include "Modules/RuleModule.h"

#include <Vantrel/ModuleInterface.h>

#include <array>
#include <list>
#include <set>

namespace ModuleChecker
{
namespace
{

/// The tables that rule modules ask for.
constexpr std::array Tables = { L"materials", L"drills", L"end_mills",       L"threads",
                                L"gauges",    L"tubes",  L"tolerance_grades" };

/// No table, entry or property has this name.
constexpr const wchar_t* NoSuchName = L"no such name";

class DatabaseCheck
{
public:
    DatabaseCheck(IRuleDatabase& database, CheckReport& report) : m_database(database), m_report(report) {}

    void Run()
    {
        std::size_t entries = 0;
        std::size_t tables = 0;
        for (const wchar_t* const table : Tables)
        {
            const std::size_t count = CheckTable(table);
            entries += count;
            tables += count > 0 ? 1U : 0U;
        }
        if (entries == 0)
        {
            m_report.Warning({}, L"none of the tables that rule modules ask for has an entry");
        }
        CheckUnknownNames();
        m_report.Add(CheckNote::Kind::Counts, {},
                     L"database with " + std::to_wstring(entries) + L" entries in " + Counted(tables, L"table"));
    }

private:
    std::size_t CheckTable(const std::wstring& table)
    {
        const std::wstring place = L"table " + Quoted(table);
        std::list<std::wstring> names;
        Try(m_report, place, L"GetNames", [&] { m_database.GetNames(table, L"", names); });
        std::set<std::wstring> seen;
        for (const std::wstring& name : names)
        {
            if (name.empty())
            {
                m_report.Error(place, L"an entry has no name");
            }
            else if (!seen.insert(name).second)
            {
                m_report.Error(place, L"two entries have the name " + Quoted(name));
            }
        }
        return names.size();
    }

    void CheckUnknownNames()
    {
        std::list<std::wstring> names;
        Try(m_report, L"a table that isn't there", L"GetNames", [&] { m_database.GetNames(NoSuchName, L"", names); });
        if (!names.empty())
        {
            m_report.Error(L"a table that isn't there", L"GetNames gives entries");
        }
        constexpr double Before = 12345;
        double value = Before;
        bool known = false;
        Try(m_report, L"a property that isn't there", L"GetProperty",
            [&] { known = m_database.GetProperty(Tables.front(), NoSuchName, NoSuchName, value); });
        if (known || value != Before)
        {
            m_report.Error(L"a property that isn't there", L"GetProperty gives or changes a value");
        }
    }

    IRuleDatabase& m_database;
    CheckReport& m_report;
};

} // namespace

void CheckDatabaseModule(Platform::LibraryHandle library, CheckReport& report)
{
    CheckRequiredExports(library, RequiredOfDatabaseModules, L"database module", report);
    CheckModuleName(library, report);
    const auto open = FindExport<GetDbInterfaceFunction>(library, "GetDbInterface");
    const auto close = FindExport<DeleteDbInterfaceFunction>(library, "DeleteDbInterface");
    if (open == nullptr || close == nullptr)
    {
        return;
    }
    IRuleDatabase* database = nullptr;
    IRuleDatabase* another = nullptr;
    const bool opened = Try(report, {}, L"GetDbInterface", [&] { database = open(); }) &&
                        Try(report, {}, L"GetDbInterface, called again,", [&] { another = open(); });
    if (opened && (database == nullptr || another == nullptr))
    {
        report.Error({}, L"GetDbInterface gives no database");
    }
    if (database != nullptr)
    {
        DatabaseCheck(*database, report).Run();
        Try(report, {}, L"DeleteDbInterface", [&] { close(database); });
    }
    if (another != nullptr)
    {
        Try(report, {}, L"DeleteDbInterface", [&] { close(another); });
    }
}

} // namespace ModuleChecker

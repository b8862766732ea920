#include "tests/RuleModules/Fixtures/CallRecord.h"

#include "tests/RuleModules/Fixtures/TestModule.h"

#include <Vantrel/RuleDatabase.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <type_traits>
#include <vector>

namespace
{

struct Calls
{
    std::vector<std::string> exports;
    std::string text; // what `TestModuleCalls` gave last
};

Calls& AllCalls()
{
    static Calls calls;
    return calls;
}

} // namespace

void RecordCall(const char* exportName)
{
    AllCalls().exports.emplace_back(exportName);
    std::wstring journal;
    if (EnvironmentValue(L"VANTREL_TEST_MODULE_JOURNAL", journal) && !journal.empty())
    {
        std::ofstream(std::filesystem::path(journal), std::ios::app) << MODULE_NAME << ' ' << exportName << '\n';
    }
}

extern "C"
{
    QOX_MODULE_EXPORT int TestModuleCallCount(const char* exportName)
    {
        const std::vector<std::string>& exports = AllCalls().exports;
        return static_cast<int>(std::count(exports.begin(), exports.end(), exportName));
    }

    QOX_MODULE_EXPORT const char* TestModuleCalls()
    {
        std::string& text = AllCalls().text;
        text.clear();
        for (const std::string& call : AllCalls().exports)
        {
            text += (text.empty() ? "" : " ") + call;
        }
        return text.c_str();
    }

    QOX_MODULE_EXPORT void TestModuleReset()
    {
        AllCalls().exports.clear();
    }
}

static_assert(std::is_same_v<decltype(&TestModuleCallCount), TestModuleCallCountFunction>);
static_assert(std::is_same_v<decltype(&TestModuleCalls), TestModuleCallsFunction>);
static_assert(std::is_same_v<decltype(&TestModuleReset), TestModuleResetFunction>);

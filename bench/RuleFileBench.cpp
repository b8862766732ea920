// Loading and saving of rule files that hold the rules of the staged modules, measured in
// pairs with the XML library alone on the same file, and what a loaded rule takes in memory.
//
// Counters: `ratio` is the median over all pairs of our time by that of the library; `growth`
// is our median time by that of a tenth of the rules.

#include "bench/BenchApplication.h"
#include "bench/BenchTiming.h"
#include "Document/Lumeq.h"
#include "Platform/Text.h"

#include <Vantrel/QoxRule.h>
#include <Vantrel/VantrelLog.h>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace
{

/// Our times and those of the XML library, measured in turns.
class Pairs
{
public:
    void Add(double ours, double baseline)
    {
        m_ours.push_back(ours);
        m_ratios.push_back(ours / baseline);
    }

    /// `mediansOfSizes` keeps our median for each number of rules, for the growth.
    void Report(benchmark::State& state, std::map<int, double>& mediansOfSizes) const
    {
        const int count = static_cast<int>(state.range(0));
        const double median = Median(m_ours);
        state.counters["ratio"] = Median(m_ratios);
        state.counters["us_per_rule"] = median * 1e6 / count;
        mediansOfSizes[count] = median;
        if (const auto tenth = mediansOfSizes.find(count / 10); tenth != mediansOfSizes.end())
        {
            state.counters["growth"] = median / tenth->second;
        }
    }

private:
    std::vector<double> m_ours;
    std::vector<double> m_ratios;
};

/// A rule file with so many rules, of all modules by turns.
std::string MakeFile(BenchApplication& application, int count)
{
    PointerArray rules;
    application.MakeRules(rules, count);
    CQOXRMLumeq record;
    for (CQoxRule* const rule : rules)
    {
        std::int32_t index = 0;
        record.AddRule(rule, index);
    }
    std::string path = application.File("rules.vrf");
    record.WriteRuleFile(path);
    application.GiveBack(rules);
    return path;
}

/// Loads the file and gives the rules back; `load` is run around the loading itself.
template <typename Around>
void LoadFile(BenchApplication& application, const std::string& path, int count, Around&& around)
{
    CQOXRMLumeq record;
    bool loaded = false;
    around([&] { loaded = record.LoadRuleFile(path); });
    PointerArray rules;
    record.GetRules(rules);
    Require(loaded && rules.GetSize() == count, "the file was not loaded whole");
    application.GiveBack(rules);
}

void LoadRuleFile(benchmark::State& state)
{
    static std::map<int, double> medians;
    BenchApplication application;
    const int count = static_cast<int>(state.range(0));
    const std::string path = MakeFile(application, count);
    Pairs pairs;
    for ([[maybe_unused]] auto _ : state)
    {
        double ours = 0;
        LoadFile(application, path, count, [&ours](auto&& load) { ours = SecondsOf(load); });
        bool parsed = false;
        // Ours lets go of its document too.
        const double baseline = SecondsOf([&] { parsed = pugi::xml_document().load_file(path.c_str()); });
        Require(parsed, "the library can't parse the file");
        pairs.Add(ours, baseline);
        state.SetIterationTime(ours);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(std::filesystem::file_size(path)) * state.iterations());
    pairs.Report(state, medians);
}

/// The program logs each rule that it loads, and flushes each line.
void LoadRuleFileWithLog(benchmark::State& state)
{
    static std::map<int, double> medians;
    BenchApplication application;
    const int count = static_cast<int>(state.range(0));
    const std::string path = MakeFile(application, count);
    Pairs pairs;
    for ([[maybe_unused]] auto _ : state)
    {
        CVantrelLog::OpenLogFile(Platform::FromCodePage(application.File("log")));
        double ours = 0;
        LoadFile(application, path, count, [&ours](auto&& load) { ours = SecondsOf(load); });
        CVantrelLog::CloseLogFile();
        pairs.Add(ours, SecondsOf([&] { benchmark::DoNotOptimize(pugi::xml_document().load_file(path.c_str())); }));
        state.SetIterationTime(ours);
    }
    pairs.Report(state, medians);
}

void WriteRuleFile(benchmark::State& state)
{
    static std::map<int, double> medians;
    BenchApplication application;
    const int count = static_cast<int>(state.range(0));
    const std::string path = MakeFile(application, count);
    pugi::xml_document document;
    Require(document.load_file(path.c_str()), "the library can't parse the file");

    CQOXRMLumeq record;
    Require(record.LoadRuleFile(path), "the file was not loaded");
    const std::string ourPath = application.File("ours.vrf");
    const std::string theirPath = application.File("theirs.vrf");
    Pairs pairs;
    for ([[maybe_unused]] auto _ : state)
    {
        const double ours = SecondsOf([&] { benchmark::DoNotOptimize(record.WriteRuleFile(ourPath)); });
        bool saved = false;
        const double baseline = SecondsOf(
            [&] { saved = document.save_file(theirPath.c_str(), "  ", pugi::format_indent, pugi::encoding_utf8); });
        Require(saved, "the library can't write the file");
        pairs.Add(ours, baseline);
        state.SetIterationTime(ours);
    }
    Require(std::filesystem::file_size(ourPath) == std::filesystem::file_size(path), "the file was not saved whole");
    state.SetBytesProcessed(static_cast<std::int64_t>(std::filesystem::file_size(path)) * state.iterations());
    pairs.Report(state, medians);

    PointerArray rules;
    record.GetRules(rules);
    application.GiveBack(rules);
}

/// Highest memory of the process since the last reset, in bytes. 0 where it can't be told.
double HighestMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
    {
        if (line.starts_with("VmHWM:"))
        {
            return std::stod(line.substr(6)) * 1024;
        }
    }
    return 0;
}

void ResetHighestMemory()
{
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5;
}

double HeapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// `kept`: bytes of the heap that a loaded rule takes. `peak`: bytes for each rule by which
/// the process grows at its highest, with the file and its document.
void MemoryOfLoadedRules(benchmark::State& state)
{
    BenchApplication application;
    const int count = static_cast<int>(state.range(0));
    const std::string path = MakeFile(application, count);
    for ([[maybe_unused]] auto _ : state)
    {
        ResetHighestMemory();
        const double before = HighestMemory();
        const double heapBefore = HeapInUse();
        double kept = 0;
        LoadFile(application, path, count,
                 [&](auto&& load)
                 {
                     load();
                     kept = HeapInUse() - heapBefore;
                 });
        state.counters["kept"] = kept / count;
        state.counters["peak"] = (HighestMemory() - before) / count;
    }
    state.counters["file"] = static_cast<double>(std::filesystem::file_size(path)) / count;
}

BENCHMARK(LoadRuleFile)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(WriteRuleFile)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadRuleFileWithLog)->Arg(1'000)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryOfLoadedRules)->Arg(10'000)->Arg(100'000)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

// Adding rules to a record and finding them by index. The cost for one must not grow with
// their number.

#include "Document/Lumeq.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace
{

/// Time for one of the rules, as `per_rule`.
void ReportTimePerRule(benchmark::State& state)
{
    state.counters["per_rule"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void AddAll(CQOXRMLumeq& record, std::vector<ConcreteQOXRule>& rules)
{
    for (ConcreteQOXRule& rule : rules)
    {
        std::int32_t index = 0;
        record.AddRule(&rule, index);
    }
}

void AddRule(benchmark::State& state)
{
    std::vector<ConcreteQOXRule> rules(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
    {
        CQOXRMLumeq record;
        AddAll(record, rules);
        benchmark::DoNotOptimize(record.GetCount());
    }
    ReportTimePerRule(state);
}

void FindRuleByIndex(benchmark::State& state)
{
    const std::int64_t count = state.range(0);
    std::vector<ConcreteQOXRule> rules(static_cast<std::size_t>(count));
    CQOXRMLumeq record;
    AddAll(record, rules);
    // A step that shares no divisor with the number of rules leads through all of them.
    constexpr std::int64_t Step = 7'919;
    for ([[maybe_unused]] auto _ : state)
    {
        std::int64_t place = 0;
        for (std::int64_t round = 0; round < count; ++round)
        {
            place = (place + Step) % count;
            CQoxRule* found = nullptr;
            record.FindRule(record.TreeRoot(), static_cast<std::int32_t>(place + 1), found);
            if (found != &rules[static_cast<std::size_t>(place)])
            {
                throw std::runtime_error("another rule was found");
            }
        }
    }
    ReportTimePerRule(state);
}

BENCHMARK(AddRule)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FindRuleByIndex)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

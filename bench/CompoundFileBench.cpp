// Writing and reading compound files, measured in pairs with plainly writing and reading the
// same bytes as one file.
//
// Counters: `ratio` is the median over all pairs of our time by that of the plain file;
// `growth` is our median time by that of a tenth of the streams.

#include "bench/BenchFolder.h"
#include "bench/BenchTiming.h"
#include "Platform/Files.h"
#include "Platform/StructuredStorage.h"
#include "Platform/Text.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace
{

using namespace Platform;

constexpr std::uint32_t MakeFile = StorageMode::Transacted | StorageMode::Create | StorageMode::Write;
constexpr std::uint32_t Exclusive = StorageMode::ShareExclusive;
constexpr std::uint32_t ExclusiveWrite = StorageMode::ShareExclusive | StorageMode::Write;

constexpr int Pairs = 15;

/// Streams of one size.
struct Streams
{
    explicit Streams(const benchmark::State& state)
        : count(static_cast<std::size_t>(state.range(0))), size(static_cast<std::uint32_t>(state.range(1))),
          contents(size, 'x')
    {
        for (std::size_t index = 0; index < count; ++index)
        {
            names.push_back(L"rule " + std::to_wstring(index));
        }
    }

    std::size_t count;
    std::uint32_t size;
    /// The bytes of all of them.
    std::string All() const { return std::string(count * size, 'x'); }

    std::string contents;
    std::vector<std::wstring> names;
};

void WriteCompound(const std::wstring& path, const Streams& streams)
{
    const auto root = CreateStorageFile(path, MakeFile).object;
    for (const std::wstring& name : streams.names)
    {
        const auto stream = root->CreateStream(name, ExclusiveWrite).object;
        Require(stream->Write(streams.contents.data(), streams.size) == streams.size, "a stream isn't written");
    }
    Require(root->Commit(), "the compound file isn't written");
}

struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// A file without a buffer of its own, which would only be one copy more.
std::unique_ptr<std::FILE, FileCloser> OpenPlain(const std::wstring& path, const char* mode)
{
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(NativePath(path).c_str(), mode));
    Require(file != nullptr && std::setvbuf(file.get(), nullptr, _IONBF, 0) == 0, "the plain file doesn't open");
    return file;
}

void WritePlain(const std::wstring& path, const std::string& bytes)
{
    // As a new file each time, like the compound one.
    DeleteFileAt(path);
    const auto file = OpenPlain(path, "wb");
    Require(std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size(), "the plain file isn't written");
}

/// Into one buffer over and over, as a caller does that works on one stream after the other.
void ReadCompound(const std::wstring& path, const Streams& streams, std::string& buffer)
{
    const auto root = OpenStorageFile(path, StorageMode::Transacted).object;
    for (const std::wstring& name : streams.names)
    {
        const auto stream = root->OpenStream(name, Exclusive).object;
        Require(stream->Read(buffer.data(), streams.size) == streams.size, "a stream isn't read");
    }
}

void ReadPlain(const std::wstring& path, std::string& bytes)
{
    const auto file = OpenPlain(path, "rb");
    Require(std::fread(bytes.data(), 1, bytes.size(), file.get()) == bytes.size(), "the plain file isn't read");
}

void Report(benchmark::State& state, const std::vector<double>& ours, const std::vector<double>& ratios,
            std::map<std::int64_t, double>& mediansOfCounts)
{
    const double median = Median(ours);
    const std::int64_t count = state.range(0);
    state.counters["ratio"] = Median(ratios);
    state.counters["us_per_stream"] = median * 1e6 / static_cast<double>(count);
    mediansOfCounts[count] = median;
    if (const auto tenth = mediansOfCounts.find(count / 10); tenth != mediansOfCounts.end())
    {
        state.counters["growth"] = median / tenth->second;
    }
}

/// Runs two actions in turns.
template <typename Ours, typename Plain>
void Compare(benchmark::State& state, const Ours& ours, const Plain& plain,
             std::map<std::int64_t, double>& mediansOfCounts)
{
    std::vector<double> times;
    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state)
    {
        const double plainTime = SecondsOf(plain);
        times.push_back(SecondsOf(ours));
        ratios.push_back(times.back() / plainTime);
        state.SetIterationTime(times.back());
    }
    Report(state, times, ratios, mediansOfCounts);
}

void WriteCompoundFile(benchmark::State& state)
{
    static std::map<std::int64_t, double> medians;
    const BenchFolder folder;
    const Streams streams(state);
    const std::wstring compound = folder.File(L"compound");
    const std::wstring plain = folder.File(L"plain");
    const std::string all = streams.All();
    Compare(
        state, [&] { WriteCompound(compound, streams); }, [&] { WritePlain(plain, all); }, medians);
}

void ReadCompoundFile(benchmark::State& state)
{
    static std::map<std::int64_t, double> medians;
    const BenchFolder folder;
    const Streams streams(state);
    const std::wstring compound = folder.File(L"compound");
    const std::wstring plain = folder.File(L"plain");
    WriteCompound(compound, streams);
    std::string all = streams.All();
    WritePlain(plain, all);
    std::string buffer(streams.size, '\0');
    Compare(
        state, [&] { ReadCompound(compound, streams, buffer); }, [&] { ReadPlain(plain, all); }, medians);
}

constexpr std::int64_t SmallStream = 4096;
constexpr std::int64_t LargeStream = 64 << 20;

void Sizes(benchmark::internal::Benchmark* bench)
{
    bench->Args({ 1'000, SmallStream })->Args({ 10'000, SmallStream })->Args({ 1, LargeStream });
    bench->UseManualTime()->Iterations(Pairs)->Unit(benchmark::kMillisecond);
}

BENCHMARK(WriteCompoundFile)->Apply(Sizes);
BENCHMARK(ReadCompoundFile)->Apply(Sizes);

} // namespace

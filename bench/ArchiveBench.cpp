// Packing and unpacking of zip documents, measured in pairs with zlib alone on the same bytes
// in one buffer, and opening every entry of an archive by its name.
//
// Counters: `ratio` is the median over all pairs of our time by that of zlib; `growth` is our
// median time by that of a tenth of the entries.

#include "bench/BenchFolder.h"
#include "bench/BenchTiming.h"
#include "Compound/CompoundDocument.h"

#include <benchmark/benchmark.h>
#include <zlib.h>

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace
{

/// A text as scripts are.
std::string ScriptText(std::size_t size, unsigned int seed)
{
    static const std::vector<std::string> words = { "If ",     "Then ",    "Hole.Depth ", "> ",         "= ",
                                                    "Set ",    "Call ",    "Report ",     "\"too deep", "\"\r\n",
                                                    "End If ", "Face.",    "Radius ",     "Dim ",       "As Object\r\n",
                                                    "Sub ",    "Next\r\n", "' checks ",   "thickness ", "(i) " };
    std::minstd_rand random(seed);
    std::string text;
    text.reserve(size + 20);
    while (text.size() < size)
    {
        text += random() % 7 == 0 ? std::to_string(random() % 100'000) : words[random() % words.size()];
    }
    text.resize(size);
    return text;
}

struct File
{
    std::wstring name;
    std::string contents;
};

/// So many files of so many bytes each.
std::vector<File> MakeFiles(const benchmark::State& state)
{
    std::vector<File> files;
    for (int number = 0; number < state.range(0); ++number)
    {
        const auto size = static_cast<std::size_t>(state.range(1));
        files.push_back(
            { L"script" + std::to_wstring(number) + L".bas", ScriptText(size, static_cast<unsigned int>(number) + 1) });
    }
    return files;
}

unsigned char* Bytes(const std::string& text)
{
    return reinterpret_cast<unsigned char*>(const_cast<char*>(text.data()));
}

/// What zlib alone makes of a file, all at once, with the settings of our archives.
std::string DeflateWithZlib(const std::string& contents)
{
    z_stream stream = {};
    Require(deflateInit2(&stream, 8, Z_DEFLATED, -15, 9, Z_DEFAULT_STRATEGY) == Z_OK, "zlib doesn't start");
    std::string result(deflateBound(&stream, contents.size()), '\0');
    stream.next_in = Bytes(contents);
    stream.avail_in = static_cast<unsigned int>(contents.size());
    stream.next_out = Bytes(result);
    stream.avail_out = static_cast<unsigned int>(result.size());
    Require(deflate(&stream, Z_FINISH) == Z_STREAM_END, "zlib doesn't finish");
    result.resize(stream.total_out);
    deflateEnd(&stream);
    return result;
}

std::string InflateWithZlib(const std::string& deflated, std::size_t size)
{
    z_stream stream = {};
    Require(inflateInit2(&stream, -15) == Z_OK, "zlib doesn't start");
    std::string result(size, '\0');
    stream.next_in = Bytes(deflated);
    stream.avail_in = static_cast<unsigned int>(deflated.size());
    stream.next_out = Bytes(result);
    stream.avail_out = static_cast<unsigned int>(result.size());
    Require(inflate(&stream, Z_FINISH) == Z_STREAM_END, "zlib doesn't finish");
    inflateEnd(&stream);
    return result;
}

class OpenDocument
{
public:
    OpenDocument(const std::wstring& path, std::uint32_t mode) : m_mode(mode)
    {
        Require(CreateCompoundDocument(path.c_str(), mode, CompoundTypeZip, &m_document) == 0, "no document");
    }
    ~OpenDocument() { CloseCompoundDocument(&m_document); }
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;

    ICompoundFile* Open(const std::wstring& name) const
    {
        ICompoundFile* const file = m_document->GetRootFolder()->OpenFile(name.c_str(), m_mode);
        Require(file != nullptr, "a file can't be opened");
        return file;
    }

private:
    std::uint32_t m_mode;
    ICompoundDocument* m_document = nullptr;
};

void WriteDocument(const std::wstring& path, const std::vector<File>& files)
{
    const OpenDocument document(path, 10);
    for (const File& file : files)
    {
        ICompoundFile* const target = document.Open(file.name);
        target->GetOutputStream()->Write(file.contents.data(), static_cast<std::uint32_t>(file.contents.size()));
        CloseFileInParent(target);
    }
}

/// Reads a file as clients do: its size, and then all of it at once.
std::string ReadFile(const OpenDocument& document, const std::wstring& name)
{
    ICompoundFile* const source = document.Open(name);
    std::uint32_t size = 0;
    Require(source->GetSize(&size) == 0, "no size");
    std::string contents(size, '\0');
    Require(source->GetInputStream()->Read(contents.data(), size) == size, "a file reads short");
    CloseFileInParent(source);
    return contents;
}

void Report(benchmark::State& state, const std::vector<double>& ratios)
{
    state.SetBytesProcessed(state.range(0) * state.range(1) * state.iterations());
    state.counters["ratio"] = Median(ratios);
}

void PackFiles(benchmark::State& state)
{
    const BenchFolder folder;
    const std::vector<File> files = MakeFiles(state);
    const std::wstring path = folder.File(L"package.zip");
    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state)
    {
        const double ours = SecondsOf([&] { WriteDocument(path, files); });
        const double baseline = SecondsOf(
            [&]
            {
                for (const File& file : files)
                {
                    benchmark::DoNotOptimize(DeflateWithZlib(file.contents));
                }
            });
        ratios.push_back(ours / baseline);
        state.SetIterationTime(ours);
    }
    Report(state, ratios);
}

void UnpackFiles(benchmark::State& state)
{
    const BenchFolder folder;
    const std::vector<File> files = MakeFiles(state);
    const std::wstring path = folder.File(L"package.zip");
    WriteDocument(path, files);
    std::vector<std::string> deflated;
    for (const File& file : files)
    {
        deflated.push_back(DeflateWithZlib(file.contents));
    }
    const auto size = static_cast<std::size_t>(state.range(1));
    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state)
    {
        const double ours = SecondsOf(
            [&]
            {
                const OpenDocument document(path, 5);
                for (const File& file : files)
                {
                    benchmark::DoNotOptimize(ReadFile(document, file.name));
                }
            });
        const double baseline = SecondsOf(
            [&]
            {
                for (const std::string& bytes : deflated)
                {
                    benchmark::DoNotOptimize(InflateWithZlib(bytes, size));
                }
            });
        ratios.push_back(ours / baseline);
        state.SetIterationTime(ours);
    }
    Report(state, ratios);
}

void OpenEveryEntry(benchmark::State& state)
{
    static std::map<std::int64_t, double> medians;
    const BenchFolder folder;
    std::vector<File> files;
    for (int number = 0; number < state.range(0); ++number)
    {
        files.push_back({ L"Rule " + std::to_wstring(number) + L"_Macro.bas", "x" });
    }
    const std::wstring path = folder.File(L"package.zip");
    WriteDocument(path, files);
    std::vector<double> times;
    for ([[maybe_unused]] auto _ : state)
    {
        times.push_back(SecondsOf(
            [&]
            {
                const OpenDocument document(path, 5);
                for (const File& file : files)
                {
                    benchmark::DoNotOptimize(CloseFileInParent(document.Open(file.name)));
                }
            }));
        state.SetIterationTime(times.back());
    }
    const double median = Median(times);
    state.counters["us_per_entry"] = median * 1e6 / static_cast<double>(state.range(0));
    medians[state.range(0)] = median;
    if (const auto tenth = medians.find(state.range(0) / 10); tenth != medians.end())
    {
        state.counters["growth"] = median / tenth->second;
    }
}

constexpr std::int64_t Kilobyte = 1024;
constexpr std::int64_t Megabyte = 1024 * Kilobyte;

BENCHMARK(PackFiles)->Args({ 200, 50 * Kilobyte })->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(PackFiles)->Args({ 1, 64 * Megabyte })->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(UnpackFiles)->Args({ 200, 50 * Kilobyte })->Iterations(51)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(UnpackFiles)->Args({ 1, 64 * Megabyte })->Iterations(15)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenEveryEntry)->Arg(2'000)->Arg(20'000)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2);

} // namespace

#include "tests/Platform/Posix/CompoundFileTools.h"

#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <stdexcept>

using namespace Platform;

namespace
{

constexpr std::uint32_t Exclusive = StorageMode::ShareExclusive;
constexpr std::uint32_t ExclusiveWrite = StorageMode::ShareExclusive | StorageMode::Write;

std::uint32_t Crc32(std::string_view bytes)
{
    static const auto table = []
    {
        std::array<std::uint32_t, 256> values = {};
        for (std::uint32_t index = 0; index < values.size(); ++index)
        {
            std::uint32_t value = index;
            for (int bit = 0; bit < 8; ++bit)
            {
                value = (value >> 1) ^ ((value & 1) != 0 ? 0xEDB88320 : 0);
            }
            values[index] = value;
        }
        return values;
    }();
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes)
    {
        crc = (crc >> 8) ^ table[(crc ^ static_cast<unsigned char>(byte)) & 0xFF];
    }
    return ~crc;
}

struct Line
{
    bool isStorage;
    std::string parent; // empty at the root
    std::string name;
    std::size_t size = 0;
    unsigned number = 0;

    std::string Path() const { return parent.empty() ? name : parent + "/" + name; }
};

Line Parse(const std::string& text)
{
    Line line = {};
    const std::size_t blank = text.find(' ');
    line.isStorage = text.substr(0, blank) == "storage";
    std::string path = text.substr(blank + 1);
    if (!line.isStorage)
    {
        const std::size_t second = path.rfind(' ');
        const std::size_t first = path.rfind(' ', second - 1);
        line.number = static_cast<unsigned>(std::stoul(path.substr(second + 1)));
        line.size = std::stoul(path.substr(first + 1, second - first - 1));
        path.resize(first);
    }
    const std::size_t separator = path.rfind('/');
    line.parent = separator == std::string::npos ? "" : path.substr(0, separator);
    line.name = path.substr(separator + 1);
    return line;
}

std::string ListingLine(const std::string& path, std::string_view contents)
{
    std::array<char, 32> end = {};
    std::snprintf(end.data(), end.size(), " %zu %08x", contents.size(), Crc32(contents));
    return "stream " + path + end.data();
}

std::string ListedStream(Storage& storage, const std::wstring& name, const std::string& path)
{
    const auto stream = storage.OpenStream(name, Exclusive).object;
    if (stream == nullptr || !stream->Size())
    {
        return "stream " + path + " !";
    }
    std::string contents(*stream->Size(), '\0');
    const std::uint32_t got = stream->Read(contents.data(), static_cast<std::uint32_t>(contents.size()));
    return got == contents.size() ? ListingLine(path, contents) : "stream " + path + " !";
}

void ListInto(Storage& storage, const std::string& path, DocumentLines& lines)
{
    const auto entries = storage.List();
    for (const StorageEntry& entry : entries.value())
    {
        const std::string entryPath = path + WideToUtf8(entry.name);
        if (entry.kind == StorageEntryKind::Stream)
        {
            lines.push_back(ListedStream(storage, entry.name, entryPath));
            continue;
        }
        const auto inner = storage.OpenStorage(entry.name, Exclusive).object;
        lines.push_back("storage " + entryPath + (inner == nullptr ? " !" : ""));
        if (inner != nullptr)
        {
            ListInto(*inner, entryPath + "/", lines);
        }
    }
}

int RunTool(const std::string& arguments)
{
    return std::system(("python3 '" COMPOUND_FILE_TOOL "' " + arguments).c_str());
}

std::string Quoted(const std::wstring& path)
{
    return "'" + WideToUtf8(path) + "'";
}

} // namespace

std::string StreamContents(std::size_t size, unsigned number)
{
    std::string contents(size, '\0');
    for (std::size_t index = 0; index < size; ++index)
    {
        contents[index] = static_cast<char>((index * 7 + (index >> 8) + number) & 0xFF);
    }
    return contents;
}

void Fill(Storage& root, const DocumentLines& lines)
{
    std::map<std::string, std::unique_ptr<Storage>> storages;
    for (const std::string& text : lines)
    {
        const Line line = Parse(text);
        Storage& parent = line.parent.empty() ? root : *storages.at(line.parent);
        if (line.isStorage)
        {
            storages[line.Path()] = parent.CreateStorage(Utf8ToWide(line.name), ExclusiveWrite).object;
            continue;
        }
        const auto stream = parent.CreateStream(Utf8ToWide(line.name), ExclusiveWrite).object;
        const std::string contents = StreamContents(line.size, line.number);
        if (stream == nullptr || stream->Write(contents.data(), static_cast<std::uint32_t>(line.size)) != line.size)
        {
            throw std::runtime_error("can't be written: " + text);
        }
    }
}

DocumentLines List(Storage& root)
{
    DocumentLines lines;
    ListInto(root, "", lines);
    return lines;
}

DocumentLines Sorted(DocumentLines lines)
{
    std::sort(lines.begin(), lines.end());
    return lines;
}

DocumentLines SortedListingOf(const DocumentLines& lines)
{
    DocumentLines listing;
    for (const std::string& text : lines)
    {
        const Line line = Parse(text);
        listing.push_back(line.isStorage ? text : ListingLine(line.Path(), StreamContents(line.size, line.number)));
    }
    return Sorted(listing);
}

std::string FileOf(const DocumentLines& lines)
{
    const ::TemporaryFolder folder;
    const std::wstring path = folder.File(L"document");
    {
        const auto root =
            CreateStorageFile(path, StorageMode::Transacted | StorageMode::Create | StorageMode::Write).object;
        Fill(*root, lines);
        if (!root->Commit())
        {
            throw std::runtime_error("the document can't be saved");
        }
    }
    return ReadBytes(path);
}

std::unique_ptr<MemoryBlock> BlockOf(std::string_view bytes)
{
    auto block = MemoryBlock::Allocate(bytes.size());
    if (block == nullptr || !block->Write(0, bytes))
    {
        throw std::runtime_error("no memory");
    }
    return block;
}

StorageStatus StatusOf(std::string_view bytes)
{
    const auto block = BlockOf(bytes);
    return OpenStorageOnMemory(*block, StorageMode::ShareDenyWrite).status;
}

std::optional<DocumentLines> CheckedListing(const std::wstring& path)
{
    const ::TemporaryFolder folder;
    const std::wstring output = folder.File(L"output");
    const std::wstring errors = folder.File(L"errors");
    if (RunTool("check " + Quoted(path) + " >" + Quoted(output) + " 2>" + Quoted(errors)) != 0)
    {
        ADD_FAILURE() << ReadBytes(errors);
        return std::nullopt;
    }
    DocumentLines lines;
    std::istringstream text(ReadBytes(output));
    for (std::string line; std::getline(text, line);)
    {
        lines.push_back(line);
    }
    return lines;
}

void WriteByOther(const std::wstring& path, const DocumentLines& lines, const std::string& options)
{
    const ::TemporaryFolder folder;
    const std::wstring input = folder.File(L"input");
    std::string text;
    for (const std::string& line : lines)
    {
        text += line + "\n";
    }
    WriteBytes(input, text);
    if (RunTool("write " + Quoted(path) + " " + options + " <" + Quoted(input)) != 0)
    {
        throw std::runtime_error("the other writer failed");
    }
}

// Reads any bytes as a zip document, checks that entries are found as by a walk over all of
// them, and writes what was read into another document, which must give the same.

#include "Compound/CompoundDocument.h"
#include "Compound/Unzipper.h"
#include "Compound/ZipFormat.h"
#include "fuzz/FuzzFile.h"
#include "Platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace
{

using Entries = std::vector<ZipEntry>;
using Contents = std::vector<std::pair<std::wstring, std::string>>;

constexpr std::size_t MostEntries = 40;      // that are looked at
constexpr std::size_t MostBytes = 2'000'000; // that are taken of all contents together
constexpr std::size_t BlockSize = 16384;
constexpr std::size_t LargestGrowth = 1032; // of deflated data

/// Takes bytes up to a limit.
class LimitedSink final : public IOutputStream
{
public:
    explicit LimitedSink(std::size_t limit) : m_limit(limit) {}

    std::uint32_t Write(const void* buffer, std::uint32_t count) override
    {
        const std::size_t taken = std::min<std::size_t>(count, m_limit - bytes.size());
        bytes.append(static_cast<const char*>(buffer), taken);
        full = full || taken < count;
        return static_cast<std::uint32_t>(taken);
    }

    std::string bytes;
    bool full = false;

private:
    std::size_t m_limit;
};

class OpenDocument
{
public:
    OpenDocument(const FuzzFile& file, std::uint32_t mode)
    {
        Require(CreateCompoundDocument(file.WidePath().c_str(), mode, CompoundTypeZip, &m_document) == 0);
        Require(m_document != nullptr && m_document->GetRootFolder() != nullptr);
    }
    ~OpenDocument() { Require(CloseCompoundDocument(&m_document) == 0 && m_document == nullptr); }
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;

    ICompoundFolder& Root() const { return *m_document->GetRootFolder(); }

private:
    ICompoundDocument* m_document = nullptr;
};

bool IsNamed(const ZipEntry& entry, std::wstring_view name)
{
    return Platform::EqualsNoCase(entry.name, name);
}

bool BeginsWith(const ZipEntry& entry, std::wstring_view prefix)
{
    return Platform::EqualsNoCase(std::wstring_view(entry.name).substr(0, prefix.size()), prefix);
}

/// What all entries of a name hold; nothing if that is more than `limit`.
std::optional<std::string> ContentsOf(Unzipper& unzipper, std::wstring_view name, std::size_t limit)
{
    LimitedSink sink(limit);
    for (const ZipEntry& entry : unzipper.GetEntries())
    {
        if (IsNamed(entry, name))
        {
            unzipper.ExtractEntry(entry, &sink);
        }
        if (sink.full)
        {
            return std::nullopt;
        }
    }
    return sink.bytes;
}

/// Whether entries of the name take or give more than the archive has room for, and so may be cut off.
bool MayLieOverOneAnother(const Unzipper& unzipper, std::wstring_view name)
{
    std::uint64_t taken = 0;
    std::uint64_t given = 0;
    for (const ZipEntry& entry : unzipper.GetEntries())
    {
        taken += IsNamed(entry, name) ? entry.compressedSize : 0;
        given += IsNamed(entry, name) ? entry.uncompressedSize : 0;
    }
    return taken > unzipper.ArchiveSize() || given > unzipper.ArchiveSize() * LargestGrowth;
}

std::string ReadToEnd(ICompoundFile& file)
{
    IInputStream* const stream = file.GetInputStream();
    Require(stream != nullptr && stream == file.GetInputStream());
    std::string result;
    std::vector<char> block(10'000);
    while (const std::uint32_t count = stream->Read(block.data(), 10'000))
    {
        Require(count <= 10'000);
        result.append(block.data(), count);
    }
    return result;
}

void CheckFile(ICompoundFolder& root, const Entries& entries, const std::wstring& name)
{
    ICompoundFile* const file = root.OpenFile(name.c_str(), 5);
    const auto last = std::find_if(entries.rbegin(), entries.rend(), [&](const auto& e) { return IsNamed(e, name); });
    Require((file != nullptr) == (last != entries.rend()));
    if (file != nullptr)
    {
        std::uint32_t size = 0;
        Require(file->GetSize(&size) == 0 && size == last->uncompressedSize);
        Require(root.HasChild(name.c_str()) && root.CloseFile(file));
    }
}

void CheckFolder(ICompoundFolder& root, const Entries& entries, const std::wstring& name)
{
    ICompoundFolder* const folder = root.OpenFolder(name.c_str(), 5);
    Require((folder != nullptr) == std::any_of(entries.begin(), entries.end(),
                                               [&](const ZipEntry& entry) { return BeginsWith(entry, name + L'/'); }));
    if (folder != nullptr)
    {
        Require(root.OpenFolder(name.c_str(), 5) == folder);
        Require(root.CloseFolder(folder));
    }
}

std::size_t CountOfListing(ICompoundFolder& folder)
{
    IFolderEnumerator* enumerator = folder.GetEnumerator();
    std::size_t count = 0;
    while (const GDCompoundDefinition* const definition = enumerator->Next())
    {
        ++count;
        Require(definition->GetName()[0] != L'\0');
        Require(definition->GetKind() == CompoundEntryFile || definition->GetKind() == CompoundEntryFolder);
        const std::wstring_view name = definition->GetName();
        Require(name.find(L'/') == std::wstring_view::npos);
    }
    folder.ReleaseEnumerator(&enumerator);
    return count;
}

/// The contents of the document, as far as they are looked at.
Contents ReadDocument(const FuzzFile& file)
{
    Unzipper unzipper(file.WidePath().c_str());
    const Entries& entries = unzipper.GetEntries();
    const OpenDocument document(file, 5);
    ICompoundFolder& root = document.Root();
    Require(CountOfListing(root) <= entries.size());

    Contents contents;
    std::size_t taken = 0;
    for (std::size_t index = 0; index < std::min(entries.size(), MostEntries); ++index)
    {
        const std::wstring& name = entries[index].name;
        CheckFile(root, entries, name);
        CheckFile(root, entries, name.substr(0, name.size() / 2));
        CheckFolder(root, entries, name);
        CheckFolder(root, entries, name.substr(0, name.rfind(L'/')));
        const auto expected = ContentsOf(unzipper, name, MostBytes - taken);
        if (!expected)
        {
            break; // unpacking the rest would only take time
        }
        taken += expected->size();
        ICompoundFile* const opened = root.OpenFile(name.c_str(), 5);
        Require(opened != nullptr);
        std::string delivered = ReadToEnd(*opened);
        Require(MayLieOverOneAnother(unzipper, name) ? expected->starts_with(delivered) : delivered == *expected);
        Require(root.CloseFile(opened)); // an open file's name opens no folder
        contents.emplace_back(name, std::move(delivered));
    }
    if (ICompoundFolder* const folder = entries.empty() ? nullptr : OpenFolderByPath(&root, L"a/b", 5))
    {
        CountOfListing(*folder);
    }
    return contents;
}

/// What is left of contents that went into an archive.
std::string Kept(const std::wstring& name, const std::string& contents)
{
    return ZipFormat::IsCompressible(name) ? contents : contents.substr(contents.size() / BlockSize * BlockSize);
}

void CheckWriting(const FuzzFile& file, const Contents& contents)
{
    {
        const OpenDocument document(file, 10);
        for (const auto& [name, bytes] : contents)
        {
            ICompoundFile* const target = document.Root().OpenFile(name.c_str(), 10);
            Require(target != nullptr && target->GetOutputStream() != nullptr);
            Require(target->GetOutputStream()->Write(bytes.data(), static_cast<std::uint32_t>(bytes.size())) ==
                    bytes.size());
            Require(document.Root().CloseFile(target));
        }
    }
    const Unzipper unzipper(file.WidePath().c_str());
    Require(unzipper.GetEntries().size() == contents.size());
    const OpenDocument document(file, 5);
    for (const auto& [name, bytes] : contents)
    {
        std::string expected;
        for (const auto& [otherName, otherBytes] : contents)
        {
            expected += Platform::EqualsNoCase(name, otherName) ? Kept(otherName, otherBytes) : std::string();
        }
        ICompoundFile* const source = document.Root().OpenFile(name.c_str(), 5);
        Require(source != nullptr && ReadToEnd(*source) == expected);
        Require(CloseFileInParent(source));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const FuzzFile input(".zip");
    static const FuzzFile output(".zip");
    input.Write({ reinterpret_cast<const char*>(data), size });
    const Contents contents = ReadDocument(input);
    if (contents.size() <= 8)
    {
        CheckWriting(output, contents);
    }
    return 0;
}

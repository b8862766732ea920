// Reads any bytes as a compound file: nothing that the file claims may cost more than the
// file has room for. What could be read is written anew and has to be there again.

#include "Platform/StructuredStorage.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace
{

using namespace Platform;

constexpr std::uint32_t Exclusive = StorageMode::ShareExclusive;
constexpr std::uint32_t ExclusiveWrite = StorageMode::ShareExclusive | StorageMode::Write;
constexpr std::uint32_t MakeMode = StorageMode::DirectSingleWriter | StorageMode::Create | ExclusiveWrite;

void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

/// What a stream or storage was found to hold.
struct Found
{
    std::wstring name;
    bool isStorage = false;
    std::string contents;
    std::vector<Found> children;

    bool operator==(const Found&) const = default;
};

struct Limits
{
    std::size_t entries; ///< that a file of this size has room for
    std::uint64_t bytes; ///< that are read, since streams may claim the same ones
    std::size_t size;    ///< of the file
};

std::string ReadStream(StorageStream& stream, const Limits& limits)
{
    const std::uint64_t size = stream.Size().value();
    Require(size <= limits.size);
    std::string contents(static_cast<std::size_t>(size), '\0');
    // In steps that differ, so that small and large reads meet.
    std::size_t done = 0;
    for (std::uint32_t step = 1; done < contents.size(); step = step * 3 % 8191)
    {
        const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(step, contents.size() - done));
        const std::uint32_t got = stream.Read(contents.data() + done, count);
        Require(got <= count);
        done += got;
        if (got < count)
        {
            break;
        }
    }
    char more = 0;
    Require(done < contents.size() || stream.Read(&more, 1) == 0);
    contents.resize(done);
    return contents;
}

void Explore(Storage& storage, Limits& limits, std::vector<Found>& found)
{
    const auto entries = storage.List();
    Require(entries.has_value());
    // Kept open, so that of two entries with the same name the second one isn't found again.
    std::vector<std::unique_ptr<Storage>> storages;
    std::vector<std::unique_ptr<StorageStream>> streams;
    for (const StorageEntry& entry : *entries)
    {
        Require(limits.entries-- > 0);
        Found next;
        next.name = entry.name;
        next.isStorage = entry.kind == StorageEntryKind::Storage;
        if (next.isStorage)
        {
            auto inner = storage.OpenStorage(entry.name, Exclusive);
            Require((inner.object != nullptr) == (inner.status == StorageStatus::Done));
            if (inner.object == nullptr)
            {
                continue;
            }
            Require(storage.OpenStorage(entry.name, Exclusive).status == StorageStatus::AccessDenied);
            Explore(*inner.object, limits, next.children);
            storages.push_back(std::move(inner.object));
        }
        else
        {
            auto stream = storage.OpenStream(entry.name, Exclusive);
            if (stream.object == nullptr || stream.object->Size().value() > limits.bytes)
            {
                continue;
            }
            next.contents = ReadStream(*stream.object, limits);
            limits.bytes -= next.contents.size();
            streams.push_back(std::move(stream.object));
        }
        found.push_back(std::move(next));
    }
}

void WriteInto(Storage& storage, const std::vector<Found>& found)
{
    for (const Found& next : found)
    {
        if (next.isStorage)
        {
            const auto inner = storage.CreateStorage(next.name, ExclusiveWrite);
            Require(inner.object != nullptr);
            WriteInto(*inner.object, next.children);
            continue;
        }
        const auto stream = storage.CreateStream(next.name, ExclusiveWrite);
        Require(stream.object != nullptr);
        const auto size = static_cast<std::uint32_t>(next.contents.size());
        const std::uint32_t half = size / 2;
        Require(stream.object->Write(next.contents.data(), half) == half);
        Require(stream.object->Write(next.contents.data() + half, size - half) == size - half);
    }
}

/// The order of a document that is written is that of its names, whatever it was before.
void SortByName(std::vector<Found>& found)
{
    std::sort(found.begin(), found.end(),
              [](const Found& first, const Found& second) { return first.name < second.name; });
    for (Found& next : found)
    {
        SortByName(next.children);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto block = MemoryBlock::Allocate(size);
    Require(block != nullptr && block->Write(0, { reinterpret_cast<const char*>(data), size }));
    const auto root = OpenStorageOnMemory(*block, StorageMode::ShareDenyWrite);
    Require((root.object != nullptr) == (root.status == StorageStatus::Done));
    if (root.object == nullptr)
    {
        return 0;
    }
    constexpr std::size_t EntrySize = 128;
    Limits limits = { size / EntrySize, std::uint64_t(1) << 22, size };
    std::vector<Found> found;
    Explore(*root.object, limits, found);

    const auto copy = MemoryBlock::Allocate(0);
    {
        const auto writer = CreateStorageOnMemory(*copy, MakeMode);
        WriteInto(*writer.object, found);
        Require(writer.object->Commit());
    }
    const auto reader = OpenStorageOnMemory(*copy, StorageMode::ShareDenyWrite);
    Require(reader.object != nullptr);
    Limits copyLimits = { copy->Size() / EntrySize, UINT64_MAX, copy->Size() };
    std::vector<Found> again;
    Explore(*reader.object, copyLimits, again);
    SortByName(found);
    SortByName(again);
    Require(again == found);
    return 0;
}

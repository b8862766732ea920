#include "Platform/Posix/CompoundFile/Reader.h"

#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Platform::Posix::CompoundFile
{
namespace
{

/// Notices when a chain comes back to where it was, without remembering where it has been:
/// the place to compare with is moved on after 1, 2, 4, ... steps.
class LoopCheck
{
public:
    /// False if the chain runs in a circle.
    bool Pass(std::uint32_t sector)
    {
        if (sector == m_mark)
        {
            return false;
        }
        if (++m_steps == m_limit)
        {
            m_mark = sector;
            m_limit *= 2;
        }
        return true;
    }

private:
    std::uint32_t m_mark = FreeSector;
    std::uint64_t m_steps = 0;
    std::uint64_t m_limit = 1;
};

} // namespace

StorageStatus Reader::Open(std::unique_ptr<ByteSource> source, std::shared_ptr<Reader>& reader)
{
    std::shared_ptr<Reader> opened(new Reader(std::move(source)));
    if (!opened->ReadHeader())
    {
        return StorageStatus::Damaged;
    }
    Entry root;
    if (!opened->ReadEntry(Root, root) || root.type != RootEntryType)
    {
        return StorageStatus::Damaged;
    }
    opened->m_claimed.insert(Root);
    reader = std::move(opened);
    return StorageStatus::Done;
}

bool Reader::ReadHeader()
{
    std::array<unsigned char, HeaderSize> header = {};
    if (!m_source->ReadAt(0, header.data(), header.size()))
    {
        return false;
    }
    const unsigned char* at = header.data();
    const auto version = GetNumber<std::uint16_t>(at + HeaderAt::MajorVersion);
    m_sectorShift = GetNumber<std::uint16_t>(at + HeaderAt::SectorShift);
    const bool known =
        (version == 3 && m_sectorShift == SmallSectorShift) || (version == 4 && m_sectorShift == LargeSectorShift);
    if (!known || GetNumber<std::uint64_t>(at + HeaderAt::Signature) != Signature ||
        GetNumber<std::uint16_t>(at + HeaderAt::ByteOrder) != ByteOrderMark ||
        GetNumber<std::uint16_t>(at + HeaderAt::MiniSectorShift) != MiniSectorShift ||
        GetNumber<std::uint32_t>(at + HeaderAt::MiniCutoff) != MiniCutoff)
    {
        return false;
    }
    // The header has the place of a sector. The last sector may have been cut off where
    // its contents end.
    const std::uint64_t sectors = DivideUp(m_source->Size(), std::uint64_t(1) << m_sectorShift);
    m_sectorCount = std::min<std::uint64_t>(std::max<std::uint64_t>(sectors, 1) - 1, std::uint64_t(LastSector) + 1);

    if (!ReadFatPlaces(at))
    {
        return false;
    }
    std::optional<SectorChain> directory = WholeChain(GetNumber<std::uint32_t>(at + HeaderAt::DirectoryStart));
    if (!directory)
    {
        return false;
    }
    m_directory = std::make_unique<CachedChain>(*m_source, std::move(*directory));
    const bool hasMiniFat = GetNumber<std::uint32_t>(at + HeaderAt::MiniFatSectorCount) != 0;
    m_miniFatStart = hasMiniFat ? GetNumber<std::uint32_t>(at + HeaderAt::MiniFatStart) : EndOfChain;
    return true;
}

/// Finds the sectors of the FAT: the first ones stand in the header, the others in a chain.
bool Reader::ReadFatPlaces(const unsigned char* header)
{
    const std::uint64_t perSector = (std::uint64_t(1) << m_sectorShift) / sizeof(std::uint32_t);
    // Of what the file claims, only that counts which speaks of sectors that are there.
    const std::uint64_t wanted = std::min<std::uint64_t>(DivideUp(m_sectorCount, perSector),
                                                         GetNumber<std::uint32_t>(header + HeaderAt::FatSectorCount));
    SectorChain fat;
    const auto take = [&](std::uint32_t sector)
    {
        const bool isThere = sector < m_sectorCount;
        if (isThere)
        {
            AppendSector(fat, sector, std::uint64_t(1) << m_sectorShift);
        }
        return isThere;
    };
    std::uint64_t count = 0;
    bool whole = true;
    for (; whole && count < std::min<std::uint64_t>(wanted, HeaderDifatCount); ++count)
    {
        whole = take(GetNumber<std::uint32_t>(header + HeaderAt::Difat + count * sizeof(std::uint32_t)));
    }
    // Each sector of the chain is used up, so one that runs in a circle ends too.
    std::vector<unsigned char> difat(std::size_t(1) << m_sectorShift);
    std::uint32_t sector = GetNumber<std::uint32_t>(header + HeaderAt::DifatStart);
    while (whole && count < wanted)
    {
        if (sector >= m_sectorCount ||
            !m_source->ReadAt((std::uint64_t(sector) + 1) << m_sectorShift, difat.data(), difat.size()))
        {
            return false;
        }
        for (std::uint64_t index = 0; whole && index + 1 < perSector && count < wanted; ++index, ++count)
        {
            whole = take(GetNumber<std::uint32_t>(difat.data() + index * sizeof(std::uint32_t)));
        }
        sector = GetNumber<std::uint32_t>(difat.data() + (perSector - 1) * sizeof(std::uint32_t));
    }
    m_fat = std::make_unique<CachedChain>(*m_source, std::move(fat));
    return true;
}

void Reader::AppendSector(SectorChain& chain, std::uint32_t sector, std::uint64_t length) const
{
    chain.Append((std::uint64_t(sector) + 1) << m_sectorShift, length);
}

std::optional<std::uint32_t> Reader::NextSector(std::uint32_t sector)
{
    const unsigned char* record = m_fat->Record(sector, sizeof(std::uint32_t));
    return record != nullptr ? std::optional(GetNumber<std::uint32_t>(record)) : std::nullopt;
}

/// A chain up to its end mark.
std::optional<SectorChain> Reader::WholeChain(std::uint32_t start)
{
    SectorChain chain;
    LoopCheck check;
    for (std::uint32_t sector = start; sector != EndOfChain;)
    {
        if (sector >= m_sectorCount || !check.Pass(sector))
        {
            return std::nullopt;
        }
        AppendSector(chain, sector, std::uint64_t(1) << m_sectorShift);
        const std::optional<std::uint32_t> next = NextSector(sector);
        if (!next)
        {
            return std::nullopt;
        }
        sector = *next;
    }
    return chain;
}

/// As much of a chain as a size needs; what may follow doesn't matter.
std::optional<SectorChain> Reader::ChainOfSize(std::uint32_t start, std::uint64_t size)
{
    const std::uint64_t sectorSize = std::uint64_t(1) << m_sectorShift;
    SectorChain chain;
    if (DivideUp(size, sectorSize) > m_sectorCount)
    {
        return std::nullopt;
    }
    LoopCheck check;
    std::uint32_t sector = start;
    for (std::uint64_t left = size; left > 0;)
    {
        const std::uint64_t length = std::min(left, sectorSize);
        const std::uint64_t offset = (std::uint64_t(sector) + 1) << m_sectorShift;
        if (sector >= m_sectorCount || offset + length > m_source->Size() || !check.Pass(sector))
        {
            return std::nullopt;
        }
        chain.Append(offset, length);
        left -= length;
        if (left == 0)
        {
            break;
        }
        const std::optional<std::uint32_t> next = NextSector(sector);
        if (!next)
        {
            return std::nullopt;
        }
        sector = *next;
    }
    return chain;
}

bool Reader::OpenMiniStream()
{
    if (!std::exchange(m_miniStreamTried, true))
    {
        Entry root;
        std::optional<SectorChain> table = WholeChain(m_miniFatStart);
        std::optional<SectorChain> contents;
        if (table && ReadEntry(Root, root))
        {
            contents = ChainOfSize(root.start, root.size);
        }
        if (contents)
        {
            m_miniStream = std::move(*contents);
            m_miniFat = std::make_unique<CachedChain>(*m_source, std::move(*table));
        }
    }
    return m_miniFat != nullptr;
}

/// The same as `ChainOfSize` with mini sectors. They lie in sectors, so their places in the
/// file are known as well.
std::optional<SectorChain> Reader::MiniChainOfSize(std::uint32_t start, std::uint64_t size)
{
    if (!OpenMiniStream())
    {
        return std::nullopt;
    }
    SectorChain chain;
    LoopCheck check;
    std::uint32_t sector = start;
    for (std::uint64_t left = size; left > 0;)
    {
        const std::uint64_t length = std::min<std::uint64_t>(left, MiniSectorSize);
        const std::uint64_t position = std::uint64_t(sector) << MiniSectorShift;
        if (position + length > m_miniStream.Size() || !check.Pass(sector))
        {
            return std::nullopt;
        }
        chain.Append(m_miniStream.At(position).offset, length);
        left -= length;
        if (left == 0)
        {
            break;
        }
        const unsigned char* next = m_miniFat->Record(sector, sizeof(std::uint32_t));
        if (next == nullptr)
        {
            return std::nullopt;
        }
        sector = GetNumber<std::uint32_t>(next);
    }
    return chain;
}

bool Reader::ReadEntry(std::uint32_t number, Entry& entry)
{
    const unsigned char* record = m_directory->Record(number, EntrySize);
    if (record == nullptr)
    {
        return false;
    }
    const auto length = GetNumber<std::uint16_t>(record + EntryAt::NameLength);
    const std::size_t units = length / sizeof(char16_t);
    if (length % sizeof(char16_t) != 0 || units < 2 || units > MostNameUnits + 1)
    {
        return false;
    }
    entry.name.clear();
    for (std::size_t index = 0; index + 1 < units; ++index)
    {
        const auto unit = GetNumber<std::uint16_t>(record + EntryAt::Name + index * sizeof(char16_t));
        if (unit == 0)
        {
            break;
        }
        entry.name += static_cast<char16_t>(unit);
    }
    entry.type = record[EntryAt::Type];
    entry.left = GetNumber<std::uint32_t>(record + EntryAt::Left);
    entry.right = GetNumber<std::uint32_t>(record + EntryAt::Right);
    entry.child = GetNumber<std::uint32_t>(record + EntryAt::Child);
    entry.start = GetNumber<std::uint32_t>(record + EntryAt::Start);
    // Files with small sectors may have anything in the upper half.
    entry.size = m_sectorShift == SmallSectorShift ? GetNumber<std::uint32_t>(record + EntryAt::Size)
                                                   : GetNumber<std::uint64_t>(record + EntryAt::Size);
    return !entry.name.empty();
}

bool Reader::WalkTree(std::uint32_t top, Children& children)
{
    struct Waiting
    {
        std::uint32_t number;
        Entry entry;
    };
    // In place of recursion: a tree in a file can be as deep as it has entries.
    std::vector<Waiting> waiting;
    for (std::uint32_t number = top; number != NoEntry || !waiting.empty();)
    {
        while (number != NoEntry)
        {
            Entry entry;
            if (!ReadEntry(number, entry) || entry.type == UnusedEntry || entry.type == RootEntryType ||
                !m_claimed.insert(number).second)
            {
                return false;
            }
            const std::uint32_t left = entry.left;
            waiting.push_back({ number, std::move(entry) });
            number = left;
        }
        const Waiting next = std::move(waiting.back());
        waiting.pop_back();
        number = next.entry.right;
        if (next.entry.type != StorageEntryType && next.entry.type != StreamEntryType)
        {
            continue; // of a kind that only the format's makers have
        }
        const StorageEntryKind kind =
            next.entry.type == StorageEntryType ? StorageEntryKind::Storage : StorageEntryKind::Stream;
        // Text that is none is found under the name that a listing shows.
        std::wstring name = Utf16ToWide(next.entry.name);
        children.byKey.emplace_back(EntryKey(WideToUtf16(name)), children.inOrder.size());
        children.inOrder.push_back({ next.number, kind, std::move(name) });
    }
    // In a tree that is as it should be they are sorted already.
    if (!std::is_sorted(children.byKey.begin(), children.byKey.end()))
    {
        std::sort(children.byKey.begin(), children.byKey.end());
    }
    return true;
}

const Reader::Children* Reader::ChildrenOf(std::uint32_t storage)
{
    const auto known = m_children.find(storage);
    if (known != m_children.end())
    {
        return known->second.get();
    }
    auto children = std::make_unique<Children>();
    Entry entry;
    if (!ReadEntry(storage, entry) || !WalkTree(entry.child, *children))
    {
        children.reset();
    }
    return m_children.emplace(storage, std::move(children)).first->second.get();
}

const Reader::Child* Reader::Children::Find(std::u16string_view name) const
{
    // Of names that are the same the first one in the order of the tree is found.
    const std::pair<EntryKey, std::size_t> wanted(EntryKey(name), 0);
    const auto found = std::lower_bound(byKey.begin(), byKey.end(), wanted);
    return found != byKey.end() && found->first == wanted.first ? &inOrder[found->second] : nullptr;
}

std::optional<SectorChain> Reader::ContentsOf(std::uint32_t stream)
{
    Entry entry;
    if (!ReadEntry(stream, entry))
    {
        return std::nullopt;
    }
    if (entry.size == 0)
    {
        return SectorChain();
    }
    return entry.size < MiniCutoff ? MiniChainOfSize(entry.start, entry.size) : ChainOfSize(entry.start, entry.size);
}

} // namespace Platform::Posix::CompoundFile

#include "Platform/Posix/CompoundFile/Image.h"

#include <algorithm>
#include <array>

namespace Platform::Posix::CompoundFile
{
namespace
{

constexpr std::u16string_view RootName = u"Root Entry";
constexpr std::array<char, SmallSectorSize> Padding = {};

bool IsLarge(std::uint64_t size)
{
    return size >= MiniCutoff;
}

} // namespace

Image::Image(const StorageTree& tree) : m_tree(tree), m_layout(tree.Contents())
{
    m_front.resize(HeaderSize + (m_layout.Sectors() - m_layout.streams) * SmallSectorSize);
    OrderEntries();
    PlaceStreams();
    PutHeader();
    PutFat();
    PutDirectory();
    AddPieces();
}

unsigned char* Image::SectorAt(std::uint64_t sector)
{
    return reinterpret_cast<unsigned char*>(m_front.data()) + HeaderSize + sector * SmallSectorSize;
}

/// Gives the children of each storage numbers that follow one another in the order of a
/// listing, so that walking through them is walking through the file.
void Image::OrderEntries()
{
    m_entries.reserve(m_tree.Contents().entries);
    m_entries.push_back({ .node = StorageTree::Root });
    for (std::uint32_t storage = 0; storage < m_entries.size(); ++storage)
    {
        const auto first = static_cast<std::uint32_t>(m_entries.size());
        for (const auto& [key, node] : m_tree.At(m_entries[storage].node).children)
        {
            m_entries.push_back({ .node = node });
        }
        m_entries[storage].child = LinkTree(first, static_cast<std::uint32_t>(m_entries.size()) - first);
    }
}

/// Links entries that follow one another to a tree and returns its top. All of its levels
/// are full but the last, so it is a valid red-black tree if only that one is red.
std::uint32_t Image::LinkTree(std::uint32_t first, std::uint32_t count)
{
    std::uint32_t levels = 0;
    while ((std::uint64_t(1) << levels) <= count)
    {
        ++levels;
    }
    const bool isFull = (std::uint64_t(1) << levels) - 1 == count;

    struct Range
    {
        std::uint32_t first;
        std::uint32_t count;
        std::uint32_t level;
        std::uint32_t* link; ///< in what stands above
    };
    std::uint32_t top = NoEntry;
    std::vector<Range> ranges = { { first, count, 1, &top } };
    while (!ranges.empty())
    {
        const Range range = ranges.back();
        ranges.pop_back();
        if (range.count == 0)
        {
            continue;
        }
        const std::uint32_t half = range.count / 2;
        Entry& middle = m_entries[range.first + half];
        *range.link = range.first + half;
        middle.colour = range.level == levels && !isFull ? Red : Black;
        ranges.push_back({ range.first, half, range.level + 1, &middle.left });
        ranges.push_back({ range.first + half + 1, range.count - half - 1, range.level + 1, &middle.right });
    }
    return top;
}

/// Gives each stream its place. What is small goes into the mini stream at once.
void Image::PlaceStreams()
{
    const std::uint64_t miniStreamStart = m_layout.fat + m_layout.difat + m_layout.directory + m_layout.miniFat;
    const std::uint64_t miniFatStart = miniStreamStart - m_layout.miniFat;
    std::uint64_t sector = miniStreamStart + m_layout.miniStream;
    std::uint64_t miniSector = 0;
    for (Entry& entry : m_entries)
    {
        const ByteChunks& contents = m_tree.At(entry.node).contents;
        entry.size = contents.Size();
        if (entry.size == 0)
        {
            continue;
        }
        if (IsLarge(entry.size))
        {
            entry.start = static_cast<std::uint32_t>(sector);
            sector += DivideUp(entry.size, SmallSectorSize);
            continue;
        }
        entry.start = static_cast<std::uint32_t>(miniSector);
        contents.CopyTo(reinterpret_cast<char*>(SectorAt(miniStreamStart)) + miniSector * MiniSectorSize);
        const std::uint64_t end = miniSector + DivideUp(entry.size, MiniSectorSize);
        for (; miniSector < end; ++miniSector)
        {
            const std::uint64_t next = miniSector + 1 < end ? miniSector + 1 : EndOfChain;
            PutNumber(SectorAt(miniFatStart) + miniSector * sizeof(std::uint32_t), static_cast<std::uint32_t>(next));
        }
    }
    std::fill(SectorAt(miniFatStart) + miniSector * sizeof(std::uint32_t), SectorAt(miniStreamStart),
              static_cast<unsigned char>(0xFF));
    Entry& root = m_entries.front();
    root.size = miniSector * MiniSectorSize;
    root.start = miniSector != 0 ? static_cast<std::uint32_t>(miniStreamStart) : EndOfChain;
}

void Image::PutHeader()
{
    auto* header = reinterpret_cast<unsigned char*>(m_front.data());
    const auto put = [header](std::size_t at, std::uint64_t number)
    { PutNumber(header + at, static_cast<std::uint32_t>(number)); };
    PutNumber(header + HeaderAt::Signature, Signature);
    PutNumber(header + HeaderAt::MinorVersion, MinorVersion);
    PutNumber<std::uint16_t>(header + HeaderAt::MajorVersion, 3);
    PutNumber(header + HeaderAt::ByteOrder, ByteOrderMark);
    PutNumber<std::uint16_t>(header + HeaderAt::SectorShift, SmallSectorShift);
    PutNumber<std::uint16_t>(header + HeaderAt::MiniSectorShift, MiniSectorShift);
    put(HeaderAt::FatSectorCount, m_layout.fat);
    put(HeaderAt::DirectoryStart, m_layout.fat + m_layout.difat);
    put(HeaderAt::MiniCutoff, MiniCutoff);
    put(HeaderAt::MiniFatStart,
        m_layout.miniFat != 0 ? m_layout.fat + m_layout.difat + m_layout.directory : EndOfChain);
    put(HeaderAt::MiniFatSectorCount, m_layout.miniFat);
    put(HeaderAt::DifatStart, m_layout.difat != 0 ? m_layout.fat : EndOfChain);
    put(HeaderAt::DifatSectorCount, m_layout.difat);

    // The sectors of the FAT are the first ones, so each has its own number in this list.
    for (std::uint64_t index = 0; index < HeaderDifatCount; ++index)
    {
        put(HeaderAt::Difat + index * sizeof(std::uint32_t), index < m_layout.fat ? index : FreeSector);
    }
    std::uint64_t number = HeaderDifatCount;
    for (std::uint64_t index = 0; index < m_layout.difat; ++index)
    {
        unsigned char* to = SectorAt(m_layout.fat + index);
        for (; to < SectorAt(m_layout.fat + index + 1) - sizeof(std::uint32_t); to += sizeof(std::uint32_t), ++number)
        {
            PutNumber(to, static_cast<std::uint32_t>(number < m_layout.fat ? number : FreeSector));
        }
        const bool isLast = index + 1 == m_layout.difat;
        PutNumber(to, static_cast<std::uint32_t>(isLast ? EndOfChain : m_layout.fat + index + 1));
    }
}

void Image::PutFat()
{
    unsigned char* to = SectorAt(0);
    const auto put = [&to](std::uint64_t number)
    {
        PutNumber(to, static_cast<std::uint32_t>(number));
        to += sizeof(std::uint32_t);
    };
    std::uint64_t sector = m_layout.fat + m_layout.difat;
    const auto putChain = [&](std::uint64_t count)
    {
        for (const std::uint64_t end = sector + count; sector < end; ++sector)
        {
            put(sector + 1 < end ? sector + 1 : EndOfChain);
        }
    };
    for (std::uint64_t index = 0; index < m_layout.fat; ++index)
    {
        put(FatSector);
    }
    for (std::uint64_t index = 0; index < m_layout.difat; ++index)
    {
        put(DifatSector);
    }
    putChain(m_layout.directory);
    putChain(m_layout.miniFat);
    putChain(m_layout.miniStream);
    for (std::size_t index = 1; index < m_entries.size(); ++index)
    {
        putChain(IsLarge(m_entries[index].size) ? DivideUp(m_entries[index].size, SmallSectorSize) : 0);
    }
    std::fill(to, SectorAt(m_layout.fat), static_cast<unsigned char>(0xFF));
}

void Image::PutDirectory()
{
    unsigned char* to = SectorAt(m_layout.fat + m_layout.difat);
    const unsigned char* end = to + m_layout.directory * SmallSectorSize;
    for (std::size_t index = 0; to < end; ++index, to += EntrySize)
    {
        const bool isUsed = index < m_entries.size();
        const Entry entry = isUsed ? m_entries[index] : Entry();
        PutNumber(to + EntryAt::Left, entry.left);
        PutNumber(to + EntryAt::Right, entry.right);
        PutNumber(to + EntryAt::Child, entry.child);
        if (!isUsed)
        {
            continue;
        }
        const StorageTree::Node& node = m_tree.At(entry.node);
        const std::u16string_view name = index == 0 ? RootName : node.name;
        for (std::size_t unit = 0; unit < name.size(); ++unit)
        {
            PutNumber<std::uint16_t>(to + EntryAt::Name + unit * sizeof(char16_t), name[unit]);
        }
        PutNumber(to + EntryAt::NameLength, static_cast<std::uint16_t>((name.size() + 1) * sizeof(char16_t)));
        const bool isStorage = node.kind == StorageEntryKind::Storage;
        to[EntryAt::Type] = index == 0 ? RootEntryType : isStorage ? StorageEntryType : StreamEntryType;
        to[EntryAt::Colour] = entry.colour;
        // A storage has no place of its own, and readers are strict about that.
        PutNumber(to + EntryAt::Start, isStorage && index != 0 ? 0 : entry.start);
        PutNumber(to + EntryAt::Size, entry.size);
    }
}

void Image::AddPieces()
{
    m_pieces.emplace_back(m_front);
    for (std::size_t index = 1; index < m_entries.size(); ++index)
    {
        const std::uint64_t size = m_entries[index].size;
        if (!IsLarge(size))
        {
            continue;
        }
        m_tree.At(m_entries[index].node).contents.AppendPiecesTo(m_pieces);
        if (size % SmallSectorSize != 0)
        {
            m_pieces.emplace_back(Padding.data(), SmallSectorSize - size % SmallSectorSize);
        }
    }
}

} // namespace Platform::Posix::CompoundFile

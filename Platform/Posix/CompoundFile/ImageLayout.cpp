#include "Platform/Posix/CompoundFile/ImageLayout.h"

#include "Platform/Posix/CompoundFile/Format.h"

namespace Platform::Posix::CompoundFile
{
namespace
{

constexpr std::uint64_t NumbersInSector = SmallSectorSize / sizeof(std::uint32_t);
constexpr std::uint64_t MostBytes = 0x7FFFFF00;

} // namespace

void ImageContents::ResizeStream(std::uint64_t before, std::uint64_t now)
{
    if (before < MiniCutoff)
    {
        miniSectors -= DivideUp(before, MiniSectorSize);
    }
    else
    {
        sectors -= DivideUp(before, SmallSectorSize);
    }
    if (now < MiniCutoff)
    {
        miniSectors += DivideUp(now, MiniSectorSize);
    }
    else
    {
        sectors += DivideUp(now, SmallSectorSize);
    }
}

ImageLayout::ImageLayout(const ImageContents& contents)
    : directory(DivideUp(contents.entries * EntrySize, SmallSectorSize)),
      miniFat(DivideUp(contents.miniSectors, NumbersInSector)),
      miniStream(DivideUp(contents.miniSectors * MiniSectorSize, SmallSectorSize)), streams(contents.sectors)
{
    // The FAT speaks of its own sectors too, so it grows until it has room for itself.
    for (;;)
    {
        const std::uint64_t needed = DivideUp(Sectors(), NumbersInSector);
        if (needed == fat)
        {
            break;
        }
        fat = needed;
        difat = fat > HeaderDifatCount ? DivideUp(fat - HeaderDifatCount, NumbersInSector - 1) : 0;
    }
}

std::uint64_t ImageLayout::Size() const
{
    return HeaderSize + Sectors() * SmallSectorSize;
}

bool ImageLayout::IsPossible() const
{
    return Size() <= MostBytes;
}

} // namespace Platform::Posix::CompoundFile

#include "Platform/Files.h"
#include "Platform/Posix/Descriptor.h"
#include "Platform/Posix/FileOperations.h"
#include "Platform/Posix/TemporaryFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace Platform::Posix
{
namespace
{

constexpr std::size_t PieceSize = std::size_t{ 1 } << 18;

// Not to block on a pipe that nobody writes to; regular files aren't affected.
constexpr int OpenForReading = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

/// Size of an open regular file; negative if it is none.
off_t SizeOfRegular(int file)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

/// Fills the piece as far as the file goes. False if it can't be read.
bool ReadPiece(FileOperations& operations, int file, std::vector<char>& piece)
{
    piece.resize(PieceSize);
    std::size_t size = 0;
    while (size < piece.size())
    {
        const ssize_t count = operations.Read(file, piece.data() + size, piece.size() - size);
        if (count < 0 && errno == EINTR)
        {
            continue;
        }
        if (count < 0)
        {
            return false;
        }
        if (count == 0)
        {
            break;
        }
        size += static_cast<std::size_t>(count);
    }
    piece.resize(size);
    return true;
}

bool CopyContents(FileOperations& operations, int from, int to)
{
    std::vector<char> piece;
    do
    {
        if (!ReadPiece(operations, from, piece) || !WriteAll(operations, to, { piece.data(), piece.size() }))
        {
            return false;
        }
    } while (piece.size() == PieceSize);
    return true;
}

bool HaveSameContents(const std::string& one, const std::string& other)
{
    FileOperations operations;
    const std::array files = { Descriptor(::open(one.c_str(), OpenForReading)),
                               Descriptor(::open(other.c_str(), OpenForReading)) };
    if (!files[0] || !files[1])
    {
        return false;
    }
    const off_t size = SizeOfRegular(files[0].Get());
    if (size < 0 || size != SizeOfRegular(files[1].Get()))
    {
        return false;
    }
    std::array<std::vector<char>, 2> pieces;
    do
    {
        if (!ReadPiece(operations, files[0].Get(), pieces[0]) || !ReadPiece(operations, files[1].Get(), pieces[1]) ||
            pieces[0] != pieces[1])
        {
            return false;
        }
    } while (pieces[0].size() == PieceSize);
    return true;
}

} // namespace

bool CopyFileWith(FileOperations& operations, const std::string& from, const std::string& to)
{
    const Descriptor source(operations.Open(from, OpenForReading, 0));
    if (!source || SizeOfRegular(source.Get()) < 0)
    {
        return false;
    }
    // A copy that others could read would be more than the original may allow.
    TemporaryFile copy(operations, FolderOf(to), 0600);
    return copy.File() >= 0 && CopyContents(operations, source.Get(), copy.File()) && copy.FlushAndClose() &&
           copy.TakePlaceOf(to);
}

} // namespace Platform::Posix

namespace Platform
{

bool CopyFileWhole(const std::wstring& from, const std::wstring& to)
{
    Posix::FileOperations operations;
    return Posix::CopyFileWith(operations, NativePath(from).native(), NativePath(to).native());
}

bool HaveSameContents(const std::wstring& one, const std::wstring& other)
{
    return Posix::HaveSameContents(NativePath(one).native(), NativePath(other).native());
}

} // namespace Platform

#include "Platform/Posix/ElfFile.h"

#include "Platform/Posix/Descriptor.h"

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform::Posix
{
namespace
{

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using DynamicEntry = ElfW(Dyn);

constexpr unsigned char NativeClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
constexpr unsigned char NativeOrder = std::endian::native == std::endian::little ? ELFDATA2LSB : ELFDATA2MSB;

class File
{
public:
    explicit File(const std::string& path) : m_file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC))
    {
        struct stat status = {};
        if (m_file && ::fstat(m_file.Get(), &status) == 0 && S_ISREG(status.st_mode))
        {
            m_size = static_cast<std::uint64_t>(status.st_size);
        }
    }

    bool Holds(std::uint64_t offset, std::uint64_t size) const { return offset <= m_size && size <= m_size - offset; }

    bool Read(std::uint64_t offset, void* data, std::size_t size) const
    {
        return Holds(offset, size) &&
               ::pread(m_file.Get(), data, size, static_cast<off_t>(offset)) == static_cast<ssize_t>(size);
    }

    /// Text up to its terminator, which must come within `most` bytes.
    std::optional<std::string> ReadText(std::uint64_t offset, std::uint64_t most) const
    {
        std::array<char, NAME_MAX + 1> text = {};
        if (offset >= m_size)
        {
            return std::nullopt;
        }
        const std::size_t size = std::min({ std::uint64_t(text.size()), most, m_size - offset });
        if (!Read(offset, text.data(), size))
        {
            return std::nullopt;
        }
        const auto* end = static_cast<const char*>(std::memchr(text.data(), 0, size));
        return end != nullptr ? std::optional(std::string(static_cast<const char*>(text.data()), end)) : std::nullopt;
    }

private:
    Descriptor m_file;
    std::uint64_t m_size = 0;
};

bool IsNativeLibrary(const Header& header)
{
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_ident[EI_CLASS] == NativeClass &&
           header.e_ident[EI_DATA] == NativeOrder && header.e_type == ET_DYN && header.e_phentsize == sizeof(Segment) &&
           header.e_phnum > 0;
}

/// Where a part of the loaded image lies in the file.
std::optional<std::uint64_t> OffsetOfAddress(const std::vector<Segment>& segments, std::uint64_t address)
{
    for (const Segment& segment : segments)
    {
        if (segment.p_type == PT_LOAD && address >= segment.p_vaddr && address - segment.p_vaddr < segment.p_filesz)
        {
            return segment.p_offset + (address - segment.p_vaddr);
        }
    }
    return std::nullopt;
}

std::vector<std::string> ReadNeeded(const File& file, const std::vector<Segment>& segments,
                                    const std::vector<DynamicEntry>& entries)
{
    std::uint64_t textsAddress = 0;
    std::uint64_t textsSize = 0;
    for (const DynamicEntry& entry : entries)
    {
        if (entry.d_tag == DT_STRTAB)
        {
            textsAddress = entry.d_un.d_ptr;
        }
        else if (entry.d_tag == DT_STRSZ)
        {
            textsSize = entry.d_un.d_val;
        }
    }
    std::vector<std::string> needed;
    const auto texts = OffsetOfAddress(segments, textsAddress);
    for (const DynamicEntry& entry : entries)
    {
        if (entry.d_tag == DT_NEEDED && texts && entry.d_un.d_val < textsSize)
        {
            if (auto name = file.ReadText(*texts + entry.d_un.d_val, textsSize - entry.d_un.d_val))
            {
                needed.push_back(std::move(*name));
            }
        }
    }
    return needed;
}

} // namespace

std::optional<ElfLibrary> ReadElfLibrary(const std::string& path)
{
    const File file(path);
    Header header = {};
    if (!file.Read(0, &header, sizeof(header)) || !IsNativeLibrary(header))
    {
        return std::nullopt;
    }
    std::vector<Segment> segments(header.e_phnum);
    if (!file.Read(header.e_phoff, segments.data(), segments.size() * sizeof(Segment)))
    {
        return std::nullopt;
    }
    const bool whole =
        std::all_of(segments.begin(), segments.end(),
                    [&file](const Segment& segment)
                    {
                        return segment.p_type != PT_LOAD ||
                               (segment.p_filesz <= segment.p_memsz && file.Holds(segment.p_offset, segment.p_filesz));
                    });
    const auto dynamic = std::find_if(segments.begin(), segments.end(),
                                      [](const Segment& segment) { return segment.p_type == PT_DYNAMIC; });
    if (!whole || dynamic == segments.end() || !file.Holds(dynamic->p_offset, dynamic->p_filesz))
    {
        return std::nullopt;
    }
    std::vector<DynamicEntry> entries(dynamic->p_filesz / sizeof(DynamicEntry));
    if (entries.empty() || !file.Read(dynamic->p_offset, entries.data(), entries.size() * sizeof(DynamicEntry)))
    {
        return std::nullopt;
    }
    return ElfLibrary{ ReadNeeded(file, segments, entries) };
}

} // namespace Platform::Posix

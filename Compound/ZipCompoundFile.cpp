#include "Compound/ZipCompoundFile.h"

#include "Compound/ZipPasses.h"

#include <algorithm>
#include <tuple>

ZipCompoundInputStream::ZipCompoundInputStream(ZipCompoundFile* file)
    : m_file(file), m_memory(std::make_unique<IOMemoryStream>())
{
    if (m_file == nullptr || !m_file->Archive().IsReadable())
    {
        return;
    }
    Unzipper& unzipper = *m_file->Archive().unzipper;
    // Thousands of entries of one name may all point to the same few bytes. Together they
    // give no more than the archive could hold if they didn't overlap.
    const std::uint64_t archiveSize = unzipper.ArchiveSize();
    const std::uint64_t limit = archiveSize * LargestZipGrowth;
    // Data that gives nothing takes its time all the same, so what goes in is counted as well.
    std::uint64_t taken = 0;
    for (const ZipEntry* const entry : m_file->Entries())
    {
        if (m_memory->Size() >= limit || taken > archiveSize)
        {
            break;
        }
        taken += std::min<std::uint64_t>(entry->compressedSize,
                                         archiveSize - std::min<std::uint64_t>(entry->offset, archiveSize));
        // A damaged entry reads short.
        std::ignore = unzipper.ExtractEntry(*entry, m_memory.get());
    }
    m_memory->CutBack(static_cast<std::uint32_t>(std::min<std::uint64_t>(limit, m_memory->Size())));
}

ZipCompoundInputStream::~ZipCompoundInputStream() = default;

std::uint32_t ZipCompoundInputStream::Read(void* buffer, std::uint32_t count)
{
    return m_memory->Read(buffer, count);
}

ZipCompoundOutputStream::ZipCompoundOutputStream(ZipCompoundFile* file)
    : m_file(file), m_memory(std::make_unique<IOMemoryStream>())
{
}

ZipCompoundOutputStream::~ZipCompoundOutputStream()
{
    if (m_file == nullptr || m_file->Archive().zipper == nullptr)
    {
        return;
    }
    try
    {
        const std::wstring path = GetFullFilePath(m_file);
        const std::wstring entry = path.substr(path.find(L'/') + 1);
        // A file that doesn't get into the archive is missing there; nobody asks here.
        std::ignore = m_file->Archive().zipper->AddFile(entry.c_str(), m_memory.get());
    }
    catch (const std::bad_alloc&)
    {
        // The same.
    }
}

std::uint32_t ZipCompoundOutputStream::Write(const void* buffer, std::uint32_t count)
{
    return m_memory->Write(buffer, count);
}

ZipCompoundFile::ZipCompoundFile(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name, ZipArchive& archive)
    : CompoundFileOf(mode, parent, name), m_archive(archive)
{
}

ZipCompoundFile::~ZipCompoundFile()
{
    DeleteStreams();
}

std::int32_t ZipCompoundFile::GetSize(std::uint32_t* size)
{
    try
    {
        const auto entries = Entries();
        if (size == nullptr || entries.empty())
        {
            return -1;
        }
        *size = entries.back()->uncompressedSize;
        return 0;
    }
    catch (const std::bad_alloc&)
    {
        return -1;
    }
}

bool ZipCompoundFile::Close()
{
    DeleteStreams();
    return true;
}

std::vector<const ZipEntry*> ZipCompoundFile::Entries()
{
    return m_archive.IsReadable() ? m_archive.index->Named(ZipEntryPath(GetFullFilePath(this)))
                                  : std::vector<const ZipEntry*>();
}

std::unique_ptr<ZipCompoundInputStream> ZipCompoundFile::MakeInputStream()
{
    return std::make_unique<ZipCompoundInputStream>(this);
}

std::unique_ptr<ZipCompoundOutputStream> ZipCompoundFile::MakeOutputStream()
{
    return std::make_unique<ZipCompoundOutputStream>(this);
}

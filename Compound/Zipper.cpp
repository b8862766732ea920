#include "Compound/Zipper.h"

#include "Compound/ZipPasses.h"
#include "Platform/Text.h"

#include <tuple>
#include <utility>

Zipper::Zipper(const wchar_t* path) : Zipper(path != nullptr ? ReplaceArchiveFile(path) : nullptr, CurrentArchiveTime)
{
}

Zipper::Zipper(std::unique_ptr<ArchiveFile> file, ArchiveClock clock)
    : m_file(std::move(file)), m_clock(std::move(clock))
{
    m_status = m_file != nullptr ? StatusReady : StatusNotOpened;
}

Zipper::~Zipper()
{
    if (m_file != nullptr)
    {
        WriteDirectory();
    }
}

std::int32_t Zipper::AddFile(const wchar_t* name, IInputStream* source)
{
    if (m_file == nullptr || name == nullptr || source == nullptr)
    {
        return HeaderNotWritten;
    }
    const std::string nameBytes = Platform::WideToUtf8(name);
    if (nameBytes.size() > ZipFormat::LongestName)
    {
        return HeaderNotWritten;
    }
    const std::int64_t headerPosition = m_file->Position();
    if (headerPosition < 0)
    {
        return SeekFailed;
    }
    const ArchiveTime now = m_clock();
    ZipFormat::LocalHeader header;
    header.method = ZipFormat::IsCompressible(name) ? ZipFormat::MethodDeflated : ZipFormat::MethodStored;
    header.timeAndDate = ZipFormat::PackTimeAndDate(now);
    header.nameLength = static_cast<std::uint16_t>(nameBytes.size());
    const ZipFormat::LocalExtra extra = ZipFormat::MakeLocalExtra(now);
    header.extraLength = static_cast<std::uint16_t>(extra.size());
    if (!WriteHeader(header))
    {
        return HeaderNotWritten;
    }
    // Of these and of the data a full disk shows where the header is written again.
    std::ignore = m_file->Write(nameBytes.data(), nameBytes.size());
    std::ignore = m_file->Write(extra.data(), extra.size());

    ZipTotals totals;
    // An entry stays, with what was counted, even if not all of the source went into it.
    std::ignore = header.method == ZipFormat::MethodStored ? StoreIntoArchive(*source, *m_file, totals)
                                                           : DeflateIntoArchive(*source, *m_file, totals);

    if (!m_file->Seek(headerPosition, ArchiveFile::Origin::Start))
    {
        return SeekFailed;
    }
    header.crc = totals.crc;
    header.compressedSize = totals.writeSize;
    header.uncompressedSize = totals.readSize;
    if (!WriteHeader(header))
    {
        return HeaderNotWritten;
    }
    const std::int64_t end = headerPosition + static_cast<std::int64_t>(ZipFormat::LocalHeaderSize) +
                             header.nameLength + header.extraLength + header.compressedSize;
    if (!m_file->Seek(end, ArchiveFile::Origin::Start))
    {
        return SeekFailed;
    }

    ZipFormat::CentralRecord fields = { header };
    fields.extraLength = static_cast<std::uint16_t>(ZipFormat::CentralExtraSize);
    fields.headerOffset = static_cast<std::uint32_t>(headerPosition);
    m_records.push_back({ fields, nameBytes, ZipFormat::MakeCentralExtra(extra) });
    return 0;
}

bool Zipper::WriteHeader(const ZipFormat::LocalHeader& header)
{
    const auto bytes = ZipFormat::Pack(header);
    return m_file->Write(bytes.data(), bytes.size()) == bytes.size();
}

void Zipper::WriteDirectory()
{
    // Nobody is left to be told of a failure: an archive without its end is found empty.
    const std::int64_t start = m_file->Position();
    for (const Record& record : m_records)
    {
        const auto bytes = ZipFormat::Pack(record.fields);
        std::ignore = m_file->Write(bytes.data(), bytes.size());
        std::ignore = m_file->Write(record.name.data(), record.name.size());
        std::ignore = m_file->Write(record.extra.data(), record.extra.size());
    }
    const std::int64_t end = m_file->Position();

    ZipFormat::EndRecord fields;
    fields.entriesOnDisk = static_cast<std::uint16_t>(m_records.size());
    fields.entries = fields.entriesOnDisk;
    fields.directorySize = static_cast<std::uint32_t>(end - start);
    fields.directoryOffset = static_cast<std::uint32_t>(start);
    const auto bytes = ZipFormat::Pack(fields);
    std::ignore = m_file->Write(bytes.data(), bytes.size());
}

#pragma once

#include "Compound/CompoundFile.h"
#include "Compound/IOMemoryStream.h"
#include "Compound/ZipCompoundObject.h"

#include <string>

class ZipCompoundFile;

/// The contents of a file, all of them in memory from the start.
class ZipCompoundInputStream : public IInputStream
{
public:
    /// The file isn't owned.
    explicit ZipCompoundInputStream(ZipCompoundFile* file);
    virtual ~ZipCompoundInputStream();

    std::uint32_t Read(void* buffer, std::uint32_t count) override;

private:
    ZipCompoundFile* m_file;
    std::unique_ptr<IOMemoryStream> m_memory;
};

/// Gathers the contents of a file. They go into the archive when the stream is destroyed.
class ZipCompoundOutputStream : public IOutputStream
{
public:
    /// The file isn't owned and must be whole to the end of the stream.
    explicit ZipCompoundOutputStream(ZipCompoundFile* file);
    virtual ~ZipCompoundOutputStream();
    ZipCompoundOutputStream(const ZipCompoundOutputStream&) = delete;
    ZipCompoundOutputStream& operator=(const ZipCompoundOutputStream&) = delete;

    std::uint32_t Write(const void* buffer, std::uint32_t count) override;

private:
    ZipCompoundFile* m_file;
    std::unique_ptr<IOMemoryStream> m_memory;
};

/// A file of a zip document.
class ZipCompoundFile : public CompoundFileOf<ZipCompoundObject, ZipCompoundInputStream, ZipCompoundOutputStream>
{
public:
    /// The archive is the document's and outlives the file.
    ZipCompoundFile(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name, ZipArchive& archive);
    ~ZipCompoundFile() override;

    /// Of entries with the same name the last one's size. Files being written have none.
    std::int32_t GetSize(std::uint32_t* size) override;

    bool Close() override;

    ZipArchive& Archive() { return m_archive; }

    /// The entries that the file stands for, in their order.
    std::vector<const ZipEntry*> Entries();

protected:
    std::unique_ptr<ZipCompoundInputStream> MakeInputStream() override;
    std::unique_ptr<ZipCompoundOutputStream> MakeOutputStream() override;

private:
    ZipArchive& m_archive;
};

/// Zip documents don't lie in memory; this stands for that.
class ZipMemoryFile : public IMemoryFile
{
public:
    std::uint32_t GetSize() override { return 0; }
};

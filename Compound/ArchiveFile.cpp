#include "Compound/ArchiveFile.h"

#include "Platform/StandardFile.h"

#include <cstdio>

namespace
{

struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

class StandardArchiveFile : public ArchiveFile
{
public:
    explicit StandardArchiveFile(std::FILE* file) : m_file(file) {}

    std::size_t Read(void* buffer, std::size_t count) override { return std::fread(buffer, 1, count, m_file.get()); }

    std::size_t Write(const void* buffer, std::size_t count) override
    {
        return std::fwrite(buffer, 1, count, m_file.get());
    }

    bool Seek(std::int64_t offset, Origin origin) override
    {
        const int from = origin == Origin::Start ? SEEK_SET : origin == Origin::End ? SEEK_END : SEEK_CUR;
        return Platform::SeekStandardFile(m_file.get(), offset, from);
    }

    std::int64_t Position() override { return Platform::StandardFilePosition(m_file.get()); }

private:
    std::unique_ptr<std::FILE, FileCloser> m_file;
};

std::unique_ptr<ArchiveFile> Open(const std::wstring& path, Platform::StandardFileUse use)
{
    std::FILE* const file = Platform::OpenStandardFile(path, use);
    return file != nullptr ? std::make_unique<StandardArchiveFile>(file) : nullptr;
}

} // namespace

std::unique_ptr<ArchiveFile> OpenArchiveFile(const std::wstring& path)
{
    return Open(path, Platform::StandardFileUse::Read);
}

std::unique_ptr<ArchiveFile> ReplaceArchiveFile(const std::wstring& path)
{
    return Open(path, Platform::StandardFileUse::Replace);
}

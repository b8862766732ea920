#include "Compound/ZipCompoundDocument.h"

#include "Compound/CompoundFlavours.h"

namespace
{

constexpr std::uint32_t WritingMode = CompoundModeOverwrite | CompoundModeWrite;

} // namespace

std::unique_ptr<ICompoundDocument> CreateZipDocument(const wchar_t* path, std::uint32_t mode)
{
    return std::make_unique<ZipCompoundDocument>(path, mode);
}

ZipCompoundDocument::ZipCompoundDocument(const wchar_t* path, std::uint32_t mode)
    : ZipCompoundObject(mode, nullptr, path), ICompoundDocument(CompoundTypeZip)
{
    // Only this one value writes. Another that has the bit for writing makes a reader, which
    // does nothing to the file.
    if (mode == WritingMode)
    {
        m_archive.zipper = std::make_unique<Zipper>(path);
        if (m_archive.zipper->Status() != Zipper::StatusReady)
        {
            m_archive.zipper.reset();
        }
        return;
    }
    m_archive.unzipper = std::make_unique<Unzipper>(path);
    m_archive.index = std::make_unique<ZipEntryIndex>(m_archive.unzipper->GetEntries());
}

ZipCompoundDocument::~ZipCompoundDocument()
{
    m_archive.zipper.reset();
    m_archive.index.reset();
    m_archive.unzipper.reset();
    m_rootFolder.reset();
}

ICompoundFolder* ZipCompoundDocument::GetRootFolder()
{
    const bool writes = m_archive.zipper != nullptr && SharesMode(CompoundModeWrite);
    const bool reads = m_archive.unzipper != nullptr && SharesMode(CompoundModeRead);
    if (!writes && !reads)
    {
        return nullptr;
    }
    if (m_rootFolder == nullptr)
    {
        m_rootFolder = NullWithoutMemory(
            [this] { return std::make_unique<ZipCompoundFolder>(Mode(), nullptr, ZipRootName.data(), m_archive); });
    }
    return m_rootFolder.get();
}

bool ZipCompoundDocument::Close()
{
    if (m_rootFolder != nullptr)
    {
        m_rootFolder->Close();
        m_rootFolder.reset();
    }
    // Not before: files go into the archive when they are closed.
    m_archive.zipper.reset();
    return true;
}

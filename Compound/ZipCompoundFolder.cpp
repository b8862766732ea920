#include "Compound/ZipCompoundFolder.h"

#include "Compound/ZipCompoundFile.h"
#include "Compound/ZipFolderEnumerator.h"

ZipCompoundFolder::ZipCompoundFolder(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name,
                                     ZipArchive& archive)
    : CompoundFolderOf(mode, parent, name), m_archive(archive)
{
}

ICompoundFolder* ZipCompoundFolder::OpenFolder(const wchar_t* name, std::uint32_t mode)
{
    if (name == nullptr || !SharesMode(mode))
    {
        return nullptr;
    }
    return NullWithoutMemory([&] { return OpenKnownFolder(name, mode); });
}

ICompoundFile* ZipCompoundFolder::OpenFile(const wchar_t* name, std::uint32_t mode)
{
    if (name == nullptr || !SharesMode(mode))
    {
        return nullptr;
    }
    return NullWithoutMemory(
        [&]() -> ICompoundFile*
        {
            if (SharesMode(CompoundModeRead) && !HasFile(name))
            {
                return nullptr;
            }
            return Adopt(std::make_unique<ZipCompoundFile>(mode, this, name, m_archive));
        });
}

IFolderEnumerator* ZipCompoundFolder::GetEnumerator()
{
    return NullWithoutMemory([this] { return std::make_unique<ZipFolderEnumerator>(*this, m_archive); }).release();
}

ICompoundFolder* ZipCompoundFolder::OpenKnownFolder(const wchar_t* name, std::uint32_t mode)
{
    if (ZipCompoundObject* const child = FindChild(name); child != nullptr)
    {
        return dynamic_cast<ICompoundFolder*>(child); // null for a file
    }
    if (SharesMode(CompoundModeRead) && !HasFolder(name))
    {
        return nullptr;
    }
    return Adopt(std::make_unique<ZipCompoundFolder>(mode, this, name, m_archive));
}

bool ZipCompoundFolder::HasFolder(const wchar_t* name)
{
    return m_archive.IsReadable() && m_archive.index->HasBeginning(EntryPathOf(name) + L'/');
}

bool ZipCompoundFolder::HasFile(const wchar_t* name)
{
    return m_archive.IsReadable() && m_archive.index->HasName(EntryPathOf(name));
}

std::wstring ZipCompoundFolder::EntryPathOf(const wchar_t* name)
{
    return ZipEntryPath(GetFullFolderPath(this) + L'/' + name);
}

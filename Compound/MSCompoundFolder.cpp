#include "Compound/MSCompoundFolder.h"

#include "Compound/MSCompoundFile.h"
#include "Compound/MSFolderEnumerator.h"

#include <tuple>

namespace
{

using namespace Platform::StorageMode;

constexpr std::uint32_t OpenToReadMode = ShareExclusive;
constexpr std::uint32_t OpenToWriteMode = ShareExclusive | Write;
constexpr std::uint32_t MakeFolderMode = Create | ShareExclusive | Write;

} // namespace

MSCompoundFolder::MSCompoundFolder(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name,
                                   std::unique_ptr<Platform::Storage> storage)
    : CompoundFolderOf(mode, parent, name), m_storage(std::move(storage))
{
}

ICompoundFolder* MSCompoundFolder::OpenFolder(const wchar_t* name, std::uint32_t mode)
{
    if (name == nullptr || !SharesMode(mode))
    {
        return nullptr;
    }
    return NullWithoutMemory(
        [&]() -> ICompoundFolder*
        {
            // An open file of that name isn't an answer yet: the storage itself decides.
            if (auto* const open = dynamic_cast<MSCompoundFolder*>(FindChild(name)))
            {
                return open;
            }
            std::unique_ptr<Platform::Storage> storage;
            if (m_storage != nullptr && SharesMode(CompoundModeRead))
            {
                storage = m_storage->OpenStorage(name, OpenToReadMode).object;
            }
            else if (m_storage != nullptr && SharesMode(CompoundModeWrite))
            {
                storage = m_storage->OpenStorage(name, OpenToWriteMode).object;
                if (storage == nullptr)
                {
                    storage = m_storage->CreateStorage(name, MakeFolderMode).object;
                }
            }
            return storage != nullptr ? Adopt(std::make_unique<MSCompoundFolder>(mode, this, name, std::move(storage)))
                                      : nullptr;
        });
}

ICompoundFile* MSCompoundFolder::OpenFile(const wchar_t* name, std::uint32_t mode)
{
    if (name == nullptr || !SharesMode(mode))
    {
        return nullptr;
    }
    return NullWithoutMemory(
        [&]() -> ICompoundFile*
        {
            std::unique_ptr<Platform::StorageStream> stream;
            if (m_storage != nullptr && SharesMode(CompoundModeRead))
            {
                stream = m_storage->OpenStream(name, OpenToReadMode).object;
            }
            else if (m_storage != nullptr && SharesMode(CompoundModeWrite))
            {
                stream = m_storage->CreateStream(name, OpenToWriteMode).object;
            }
            return stream != nullptr ? Adopt(std::make_unique<MSCompoundFile>(mode, this, name, std::move(stream)))
                                     : nullptr;
        });
}

IFolderEnumerator* MSCompoundFolder::GetEnumerator()
{
    return NullWithoutMemory([&] { return std::make_unique<MSFolderEnumerator>(m_storage.get()); }).release();
}

bool MSCompoundFolder::Close()
{
    CompoundFolderOf::Close();
    if (m_storage != nullptr && SharesMode(CompoundModeWrite))
    {
        // There is no way to report a failure. The file is as whole as it was before.
        std::ignore = m_storage->Commit();
        m_storage.reset();
    }
    return true;
}

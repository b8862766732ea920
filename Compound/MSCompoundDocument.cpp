#include "Compound/MSCompoundDocument.h"

#include "Compound/MSMemoryFile.h"

namespace
{

using namespace Platform::StorageMode;

constexpr std::uint32_t ReadFileMode = Transacted;
constexpr std::uint32_t MakeFileMode = Transacted | Create | Write;
constexpr std::uint32_t ReadMemoryMode = ShareDenyWrite;
constexpr std::uint32_t MakeMemoryMode = DirectSingleWriter | Create | ShareExclusive | Write;

constexpr const wchar_t* RootName = L"root:";

} // namespace

MSCompoundDocument::MSCompoundDocument(const wchar_t* path, std::uint32_t mode)
    : MSCompoundObject(mode, nullptr, path), ICompoundDocument(CompoundTypeStructured)
{
}

MSCompoundDocument::MSCompoundDocument(MSMemoryFile* memory, std::uint32_t mode)
    : MSCompoundObject(mode, nullptr, nullptr), ICompoundDocument(CompoundTypeStructured)
{
    Platform::MemoryBlock* const block = memory != nullptr ? memory->Block() : nullptr;
    if (block == nullptr)
    {
        return;
    }
    if (SharesMode(CompoundModeRead))
    {
        MakeRoot(Platform::OpenStorageOnMemory(*block, ReadMemoryMode).object);
    }
    else if (SharesMode(CompoundModeWrite))
    {
        MakeRoot(Platform::CreateStorageOnMemory(*block, MakeMemoryMode).object);
    }
}

ICompoundFolder* MSCompoundDocument::GetRootFolder()
{
    const std::wstring path = Name() != nullptr ? Name() : L""; // a document in memory has no name
    if (m_rootFolder == nullptr && !path.empty())
    {
        if (SharesMode(CompoundModeRead))
        {
            MakeRoot(Platform::OpenStorageFile(path, ReadFileMode).object);
        }
        else if (SharesMode(CompoundModeWrite))
        {
            MakeRoot(Platform::CreateStorageFile(path, MakeFileMode).object);
        }
    }
    return m_rootFolder.get();
}

void MSCompoundDocument::MakeRoot(std::unique_ptr<Platform::Storage> storage)
{
    if (storage != nullptr)
    {
        m_rootFolder = NullWithoutMemory(
            [&] { return std::make_unique<MSCompoundFolder>(Mode(), nullptr, RootName, std::move(storage)); });
    }
}

bool MSCompoundDocument::Close()
{
    if (m_rootFolder != nullptr)
    {
        m_rootFolder->Close();
        m_rootFolder.reset();
    }
    return true;
}

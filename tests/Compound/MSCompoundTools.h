#pragma once

#include "Compound/CompoundFlavours.h"
#include "Compound/CompoundObject.h"

#include <memory>
#include <string>
#include <vector>

/// A document in structured storage that is closed like one of the factory's.
class OpenMSDocument
{
public:
    OpenMSDocument(const std::wstring& path, std::uint32_t mode)
        : m_document(CreateStructuredDocument(path.c_str(), mode))
    {
    }
    OpenMSDocument(IMemoryFile* memory, std::uint32_t mode) : m_document(CreateStructuredDocumentOnMemory(memory, mode))
    {
    }
    ~OpenMSDocument() { Close(); }
    OpenMSDocument(const OpenMSDocument&) = delete;
    OpenMSDocument& operator=(const OpenMSDocument&) = delete;

    ICompoundDocument* operator->() const { return m_document.get(); }
    ICompoundFolder* Root() const { return m_document->GetRootFolder(); }

    bool Close()
    {
        const bool closed = m_document != nullptr && dynamic_cast<CompoundObject&>(*m_document).Close();
        m_document.reset();
        return closed;
    }

private:
    std::unique_ptr<ICompoundDocument> m_document;
};

constexpr std::uint32_t ReadMode = CompoundModeExisting | CompoundModeRead;
constexpr std::uint32_t MakeMode = CompoundModeOverwrite | CompoundModeWrite;

/// Writes a file and closes it. False if it can't be opened or doesn't take all of it.
inline bool PutFile(ICompoundFolder* folder, const wchar_t* name, const std::string& contents)
{
    ICompoundFile* const file = folder->OpenFile(name, MakeMode);
    if (file == nullptr)
    {
        return false;
    }
    const auto size = static_cast<std::uint32_t>(contents.size());
    const bool written = file->GetOutputStream()->Write(contents.data(), size) == size;
    return folder->CloseFile(file) && written;
}

/// Reads a file by its size and closes it. "(none)" if it can't be opened.
inline std::string GetFile(ICompoundFolder* folder, const wchar_t* name)
{
    ICompoundFile* const file = folder->OpenFile(name, ReadMode);
    std::uint32_t size = 0;
    if (file == nullptr || file->GetSize(&size) != 0)
    {
        return "(none)";
    }
    std::string contents(size, '\0');
    contents.resize(file->GetInputStream()->Read(contents.data(), size));
    folder->CloseFile(file);
    return contents;
}

/// The listing of a folder: names of files, and of folders with a slash.
inline std::vector<std::wstring> NamesIn(ICompoundFolder* folder)
{
    std::vector<std::wstring> names;
    IFolderEnumerator* enumerator = folder->GetEnumerator();
    while (const GDCompoundDefinition* const definition = enumerator->Next())
    {
        const bool isFolder = definition->GetKind() == CompoundEntryFolder;
        const bool isFile = definition->GetKind() == CompoundEntryFile;
        names.push_back(std::wstring(definition->GetName()) + (isFolder ? L"/" : isFile ? L"" : L"?"));
    }
    folder->ReleaseEnumerator(&enumerator);
    return names;
}

#include "tests/Compound/TestDocument.h"

#include "Compound/Unzipper.h"
#include "tests/Compound/MemoryArchiveFile.h"
#include "tests/Compound/TestStreams.h"
#include "tests/Support/TestFiles.h"

#include <stdexcept>

TestDocument::TestDocument()
{
    if (CreateCompoundDocument(Path().c_str(), 10, CompoundTypeZip, &m_document) != 0)
    {
        throw std::runtime_error("no document can be made");
    }
}

TestDocument::TestDocument(const std::string& archive)
{
    WriteBytes(Path(), archive);
    if (CreateCompoundDocument(Path().c_str(), 5, CompoundTypeZip, &m_document) != 0)
    {
        throw std::runtime_error("no document can be opened");
    }
}

TestDocument::~TestDocument()
{
    CloseCompoundDocument(&m_document);
}

ICompoundFolder* TestDocument::Root() const
{
    return m_document->GetRootFolder();
}

void TestDocument::Write(const wchar_t* path, const std::string& contents) const
{
    ICompoundFile* const file = OpenFileByPath(Root(), path, 10);
    if (file == nullptr || file->GetOutputStream() == nullptr ||
        file->GetOutputStream()->Write(contents.data(), static_cast<std::uint32_t>(contents.size())) !=
            contents.size() ||
        !CloseFileInParent(file))
    {
        throw std::runtime_error("a file can't be written");
    }
}

std::string TestDocument::Finish()
{
    CloseCompoundDocument(&m_document);
    return ReadBytes(Path());
}

std::string TestDocument::Read(const wchar_t* path) const
{
    ICompoundFile* const file = OpenFileByPath(Root(), path, 5);
    if (file == nullptr)
    {
        throw std::runtime_error("a file can't be opened");
    }
    std::string contents = ReadToEnd(*file->GetInputStream());
    CloseFileInParent(file);
    return contents;
}

std::vector<std::wstring> TestDocument::List(ICompoundFolder* folder) const
{
    std::vector<std::wstring> names;
    IFolderEnumerator* enumerator = folder->GetEnumerator();
    while (const GDCompoundDefinition* const definition = enumerator->Next())
    {
        names.emplace_back(definition->GetName());
        if (definition->GetKind() == CompoundEntryFolder)
        {
            names.back() += L'/';
        }
    }
    folder->ReleaseEnumerator(&enumerator);
    return names;
}

std::vector<std::wstring> TestDocument::List(const wchar_t* path) const
{
    ICompoundFolder* const folder = OpenFolderByPath(Root(), path, 5);
    if (folder == nullptr)
    {
        throw std::runtime_error("a folder can't be opened");
    }
    return List(folder);
}

std::vector<std::wstring> EntryNames(const std::string& archive)
{
    const Unzipper unzipper(std::make_unique<MemoryArchiveFile>(std::make_shared<std::string>(archive)));
    std::vector<std::wstring> names;
    for (const ZipEntry& entry : unzipper.GetEntries())
    {
        names.push_back(entry.name);
    }
    return names;
}

#pragma once

#include "Compound/CompoundDocument.h"
#include "tests/Support/TemporaryFolder.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// A zip document on a file of its own, made and closed as clients do it.
class TestDocument
{
public:
    /// Begins to write an archive.
    TestDocument();

    /// Reads an archive of these bytes.
    explicit TestDocument(const std::string& archive);

    ~TestDocument();
    TestDocument(const TestDocument&) = delete;
    TestDocument& operator=(const TestDocument&) = delete;

    ICompoundDocument* Document() const { return m_document; }
    ICompoundFolder* Root() const;
    std::wstring Path() const { return m_folder.File(L"package.zip"); }

    /// Writes a file by its path and closes it.
    void Write(const wchar_t* path, const std::string& contents) const;

    /// Closes the document and reads what it has written, as it stands in the file.
    std::string Finish();

    /// Contents of a file by its path, read to the end. Throws if it can't be opened.
    std::string Read(const wchar_t* path) const;

    /// The listing of a folder: names of folders with a slash at their end.
    std::vector<std::wstring> List(ICompoundFolder* folder) const;
    std::vector<std::wstring> List(const wchar_t* path) const;

private:
    TemporaryFolder m_folder;
    ICompoundDocument* m_document = nullptr;
};

/// Names of the entries of an archive in their order, read with `Unzipper`.
std::vector<std::wstring> EntryNames(const std::string& archive);

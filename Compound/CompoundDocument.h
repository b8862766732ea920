#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// A compound document is one file that holds a tree of named folders and files. Code above
/// the containers sees only what stands here.
///
/// Names are compared without regard to case. Ownership runs downward: the document owns its
/// root, a folder its open children, a file its streams. Nothing here throws: null, false, -1
/// or a short count tells of a failure.

/// Bits of an open mode. 5 reads an existing document, 10 makes one in the place of what is there.
enum : std::uint32_t
{
    CompoundModeExisting = 1,
    CompoundModeOverwrite = 2, ///< an existing file may be deleted first
    CompoundModeRead = 4,
    CompoundModeWrite = 8,
};

/// Flavours of documents.
enum : std::uint32_t
{
    CompoundTypeStructured = 0,
    CompoundTypeZip = 1,
};

/// Kinds of entries in a listing.
enum : std::uint32_t
{
    CompoundEntryFile = 1,
    CompoundEntryFolder = 2,
};

/// Results of `CreateCompoundDocument` beside 0.
enum : std::uint32_t
{
    CompoundErrorNotFound = 16385,
    CompoundErrorExists = 16386,
    CompoundErrorFlavour = 0xFFFFFFFF, ///< the flavour doesn't serve the call
};

/// Bytes to be read. A stream that delivers fewer bytes than it was asked for has no more.
class IInputStream
{
public:
    /// The number of bytes put into the buffer; 0 at the end.
    virtual std::uint32_t Read(void* buffer, std::uint32_t count) = 0;

protected:
    ~IInputStream() = default; // deleted only through its own class, by its owner
};

/// Takes bytes.
class IOutputStream
{
public:
    /// The number of bytes taken.
    virtual std::uint32_t Write(const void* buffer, std::uint32_t count) = 0;

protected:
    ~IOutputStream() = default; // deleted only through its own class, by its owner
};

/// One record of a folder listing.
class GDCompoundDefinition
{
public:
    GDCompoundDefinition() = default;

    /// Copies the name; null stays null. `kind` is a `CompoundEntry...` value.
    GDCompoundDefinition(const wchar_t* name, std::uint32_t kind);

    virtual ~GDCompoundDefinition();
    GDCompoundDefinition(const GDCompoundDefinition&) = delete;
    GDCompoundDefinition& operator=(const GDCompoundDefinition&) = delete;

    const wchar_t* GetName() const { return m_name.get(); }
    std::uint32_t GetKind() const { return m_kind; }

private:
    std::unique_ptr<wchar_t[]> m_name;
    std::uint32_t m_kind = 0;
};

/// Walks a listing forward, once. The listing is that of the moment when it was made.
class IFolderEnumerator
{
public:
    virtual ~IFolderEnumerator() = default;

    /// The next record, owned by the enumerator; null past the end.
    virtual GDCompoundDefinition* Next() = 0;
};

class ICompoundFolder;

/// An open file of a document.
class ICompoundFile
{
public:
    virtual ~ICompoundFile() = default;

    /// The contents; the same object at each call. Null unless the file is open for reading.
    virtual IInputStream* GetInputStream() = 0;

    /// Takes the contents; the same object at each call. Null unless the file is open for writing.
    virtual IOutputStream* GetOutputStream() = 0;

    /// The folder that opened the file.
    virtual ICompoundFolder* GetParent() = 0;

    /// The name that was given to `OpenFile`.
    virtual const wchar_t* GetName() = 0;

    /// 0 and the size of the contents in bytes; -1 if it isn't known.
    virtual std::int32_t GetSize(std::uint32_t* size) = 0;
};

/// An open folder of a document.
class ICompoundFolder
{
public:
    virtual ~ICompoundFolder() = default;

    /// A folder owned by this one; null if it can't be opened or the mode doesn't fit this folder's.
    virtual ICompoundFolder* OpenFolder(const wchar_t* name, std::uint32_t mode) = 0;

    /// A file owned by this folder; null if it can't be opened or the mode doesn't fit the folder's.
    virtual ICompoundFile* OpenFile(const wchar_t* name, std::uint32_t mode) = 0;

    /// Closes and deletes a child. False for null and for one that isn't this folder's.
    virtual bool CloseFolder(ICompoundFolder* folder) = 0;

    /// As `CloseFolder`.
    virtual bool CloseFile(ICompoundFile* file) = 0;

    /// Null at the root.
    virtual ICompoundFolder* GetParent() = 0;

    /// Owned by the folder; "root:" at the root.
    virtual const wchar_t* GetName() = 0;

    /// True if a child of that name was opened through this folder, also if it was closed since.
    virtual bool HasChild(const wchar_t* name) = 0;

    /// The caller owns the result.
    virtual IFolderEnumerator* GetEnumerator() = 0;

    /// Deletes the enumerator, if there is one, and sets the pointer to null. The result is the argument.
    virtual IFolderEnumerator** ReleaseEnumerator(IFolderEnumerator** enumerator) = 0;
};

/// An open document. It is closed with `CloseCompoundDocument`.
class ICompoundDocument
{
public:
    explicit ICompoundDocument(std::uint32_t flavour) : type(flavour) {}
    ICompoundDocument(const ICompoundDocument&) = delete;
    ICompoundDocument& operator=(const ICompoundDocument&) = delete;

    const std::uint32_t type; ///< the flavour, a `CompoundType...` value

    /// Owned by the document; null if the file can't be read or written.
    virtual ICompoundFolder* GetRootFolder() = 0;

    virtual ~ICompoundDocument() = default; // here: modules are built against this order
};

/// The image of a document in memory.
class IMemoryFile
{
public:
    virtual ~IMemoryFile() = default;

    /// The size of the image in bytes.
    virtual std::uint32_t GetSize() = 0;
};

/// Opens or makes a document. 0 doesn't promise a usable one: a file of which nothing can be
/// made shows as a null root. Another `type` gives 0 and leaves `*document` alone.
std::uint32_t CreateCompoundDocument(const wchar_t* path, std::uint32_t mode, std::uint32_t type,
                                     ICompoundDocument** document);

/// Opens or makes a document on memory, which only the structured flavour can do; others give
/// `CompoundErrorFlavour`. The memory stays the caller's and must outlive the document.
std::uint32_t CreateCompoundDocumentOnMemory(IMemoryFile* memory, std::uint32_t mode, std::uint32_t type,
                                             ICompoundDocument** document);

/// Completes, closes and deletes a document and sets the pointer to null. Files that are open
/// are closed. 0, or `CompoundErrorFlavour` for a document of no known flavour.
std::uint32_t CloseCompoundDocument(ICompoundDocument** document);

/// The names from the root down, as in `root:/a/b`.
std::wstring GetFullFolderPath(ICompoundFolder* folder);

/// The path of the parent, "/" and the name; the name alone without a parent.
std::wstring GetFullFilePath(ICompoundFile* file);

/// What follows the path of the folder and the separator, if the path begins with it; else the
/// path as it is.
std::wstring GetRelativePath(ICompoundFolder* folder, std::wstring_view path);

/// Opens the folders of a path one after the other. Null if one of them can't be opened.
ICompoundFolder* OpenFolderByPath(ICompoundFolder* folder, const wchar_t* path, std::uint32_t mode);

/// As `OpenFolderByPath`, with a file as the last piece.
ICompoundFile* OpenFileByPath(ICompoundFolder* folder, const wchar_t* path, std::uint32_t mode);

/// The prefix, a dash and the name; the name alone for a null prefix. It is no path.
std::wstring JoinCompoundName(const wchar_t* prefix, const wchar_t* name);

/// Closes the file through its parent, with that call's result; false for null.
bool CloseFileInParent(ICompoundFile* file);

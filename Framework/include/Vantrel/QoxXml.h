#pragma once

#include <Vantrel/Export.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class QoxXMLListWriter;
class QoxXMLNode;
class QoxXMLNodeList;

namespace VantrelXml
{
struct DocumentState;
struct NodeAccess;
} // namespace VantrelXml

/// An XML document. Names and values cross as wide text or, in the forms whose names end
/// in `1`, as bytes of the system code page.
///
/// The caller deletes every node and node list that it is given. A node stays usable for
/// as long as it lives, even when the document object has gone.
class VANTREL_API QoxXMLDocument
{
public:
    QoxXMLDocument();
    ~QoxXMLDocument();
    QoxXMLDocument(const QoxXMLDocument&) = delete;
    QoxXMLDocument& operator=(const QoxXMLDocument&) = delete;

    /// A free element of this document; null if the name can't be one.
    QoxXMLNode* CreateNode(const std::wstring& name);
    QoxXMLNode* CreateNode1(const char* name);

    /// Makes the element the document's root, in place of the one before.
    void AppendNode(QoxXMLNode* node);

    /// Parses the file in place of what the document holds. The root element, or null if
    /// the file can't be read or isn't XML.
    QoxXMLNode* LoadFromFile(const std::wstring& path);
    QoxXMLNode* LoadFromFile1(const char* path);

    /// Writes the document whole, or leaves the file as it was and gives false.
    bool Save(const std::wstring& path);
    bool Save1(const char* path);

private:
    std::shared_ptr<VantrelXml::DocumentState> m_state;
    friend struct VantrelXml::NodeAccess;
};

/// One element of a document.
class VANTREL_API QoxXMLNode
{
public:
    ~QoxXMLNode();
    QoxXMLNode(const QoxXMLNode&) = delete;
    QoxXMLNode& operator=(const QoxXMLNode&) = delete;

    std::wstring GetNodeName() const;

    /// Adds an attribute at the end, or replaces the value of one with that name. False
    /// if the name can't be one.
    bool AddAttribute(const std::wstring& name, const std::wstring& value);
    bool AddAttribute1(const char* name, const char* value);

    /// False and an untouched `value` if the attribute is missing.
    bool GetAttributeValue(const std::wstring& name, std::wstring& value) const;

    /// On success `value` is a new array that the caller frees with `delete[]`.
    bool GetAttributeValue1(const char* name, char*& value) const;

    /// Moves the element to the end of this one's children. The caller still deletes its
    /// own object. An element of another document is copied.
    void AppendNode(QoxXMLNode* node);

    /// Makes a new last child, which the caller deletes.
    QoxXMLNode* AppendNode(const std::wstring& name, QoxXMLDocument* document);

    /// First match of a path of element names parted by `/`, or null.
    QoxXMLNode* SelectSingleNode(const std::wstring& path) const;

    /// All children with the name in document order; null if there are none.
    QoxXMLNodeList* GetNodeList(const std::wstring& name) const;
    QoxXMLNodeList* GetNodeList1(const char* name) const;

    /// The element as markup: compact, the same whether it was made here or read from a
    /// file, whatever the file's indentation.
    std::wstring GetXML() const;

    void SetNodeValue(const std::wstring& text);

    /// Reads the element's text. False if it has none; `text` is then untouched.
    bool GetNodeValueInCString(std::wstring& text) const;

private:
    QoxXMLNode() = default;

    std::shared_ptr<VantrelXml::DocumentState> m_state;
    void* m_node = nullptr; ///< Owned by the document's state.
    friend struct VantrelXml::NodeAccess;
};

/// Elements in document order.
class VANTREL_API QoxXMLNodeList
{
public:
    ~QoxXMLNodeList();
    QoxXMLNodeList(const QoxXMLNodeList&) = delete;
    QoxXMLNodeList& operator=(const QoxXMLNodeList&) = delete;

    long GetSize() const;

    /// A node that the caller deletes; null for an index out of range.
    QoxXMLNode* operator[](long index) const;

private:
    QoxXMLNodeList();

    struct Entries;
    std::unique_ptr<Entries> m_entries;
    friend struct VantrelXml::NodeAccess;
};

/// Saves a document whose root has very many children without ever holding them all: each is
/// turned into text as it is added. The file is the one that `QoxXMLDocument::Save` would
/// write. Attributes may be added to the root until it is saved.
class VANTREL_API QoxXMLListWriter
{
public:
    /// `root` has no children of its own and must outlive the writer.
    explicit QoxXMLListWriter(QoxXMLNode& root);
    ~QoxXMLListWriter();
    QoxXMLListWriter(const QoxXMLListWriter&) = delete;
    QoxXMLListWriter& operator=(const QoxXMLListWriter&) = delete;

    /// Takes a free element as the next child. Nothing may be done with the element
    /// afterwards but delete the object.
    void Append(QoxXMLNode& child);

    /// Writes the file whole, or leaves it as it was and gives false.
    bool Save(const std::wstring& path);
    bool Save1(const char* path);

    /// Same. `beforeReplacing` is called when everything but taking the place of a file that
    /// is there has been done, which it may keep. `cause` gets the number of the system's
    /// file errors for a failure (13 is a full disk), else 0.
    bool Save(const std::wstring& path, const std::function<void()>& beforeReplacing, std::int32_t& cause);
    bool Save1(const char* path, const std::function<void()>& beforeReplacing, std::int32_t& cause);

private:
    struct Blocks;
    QoxXMLNode& m_root;
    std::unique_ptr<Blocks> m_blocks;
};

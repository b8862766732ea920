#pragma once

#include <Vantrel/QoxXml.h>

#include <pugixml.hpp>

#include <memory>

namespace VantrelXml
{

/// Elements to copy new ones from, with all their attributes and no values. A copy shares the
/// names, which saves much of the time and memory that a document with very many rules takes.
struct ElementTemplates
{
    pugi::xml_node rule;
    pugi::xml_node category;
    pugi::xml_node reference;
    pugi::xml_node numericParameter;
    pugi::xml_node textParameter;
    pugi::xml_node choice;
};

/// The nodes of a document. Kept alive by the document object and by every node that was
/// handed out, so that no order of deleting them leaves one without ground.
struct DocumentState
{
    pugi::xml_document document;
    /// Holds the free elements: the parser's library has no nodes outside a tree, and
    /// moving a node costs nothing within one document.
    pugi::xml_node workshop;
    pugi::xml_node root;
    /// Null nodes until the first rule is written.
    ElementTemplates templates;
};

/// The framework's own way into documents and nodes.
struct NodeAccess
{
    static QoxXMLNode* MakeNode(std::shared_ptr<DocumentState> state, pugi::xml_node node);
    static QoxXMLNodeList* MakeList(const std::shared_ptr<DocumentState>& state, pugi::xml_node parent,
                                    const char* name);
    static pugi::xml_node NodeOf(const QoxXMLNode& node);
    static const std::shared_ptr<DocumentState>& StateOf(const QoxXMLNode& node);
    static const std::shared_ptr<DocumentState>& StateOf(const QoxXMLDocument& document);
    /// The parent of the free elements.
    static pugi::xml_node Workshop(DocumentState& state);
    /// A free element. Null node if the name can't be one.
    static pugi::xml_node NewFreeElement(DocumentState& state, const char* name);
};

/// How files are read. Comments and instructions are kept for what is written back
/// unread; blanks between elements are not, so that a digest survives indentation.
inline constexpr unsigned int ParseFlags = pugi::parse_default | pugi::parse_comments | pugi::parse_pi;

/// How markup is made for digests and for what is kept unread: without indentation.
inline constexpr unsigned int MarkupFlags = pugi::format_raw | pugi::format_no_declaration;

/// How files are written.
inline constexpr const char* Declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
inline constexpr const char* Indentation = "  ";

/// True for a text that may be the name of an element or attribute.
bool IsXmlName(const char* name);

/// The markup of one node as UTF-8.
std::string MarkupOf(pugi::xml_node node);

/// Wide text as UTF-8 fit for XML: control characters that no XML file may hold become blanks.
std::string ToXmlText(const std::wstring& text);

/// The text with every line end as a line feed, the form in which element text comes back
/// from a file.
std::string WithLineFeeds(const std::string& text);

} // namespace VantrelXml

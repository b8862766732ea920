#include <Vantrel/QoxXml.h>

#include "Framework/CurrentDocument.h"
#include "Framework/XmlEncoding.h"
#include "Framework/XmlState.h"
#include "Framework/XmlText.h"
#include "Platform/Files.h"
#include "Platform/Text.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace VantrelXml
{

namespace
{

class StringWriter : public pugi::xml_writer
{
public:
    void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }

    std::string text;
};

/// True for a wide text that is the same as the bytes, all of them ASCII.
bool IsSameAscii(const std::wstring& text, const char* bytes)
{
    std::size_t position = 0;
    while (position < text.size() && bytes[position] != '\0' && text[position] < 0x80 &&
           static_cast<wchar_t>(static_cast<unsigned char>(bytes[position])) == text[position])
    {
        ++position;
    }
    return position == text.size() && bytes[position] == '\0';
}

/// The attribute with the name. Readers ask every element for its first one by a name of
/// plain letters, so that is looked at without converting the name.
pugi::xml_attribute FindAttribute(pugi::xml_node node, const std::wstring& name)
{
    const pugi::xml_attribute first = node.first_attribute();
    return IsSameAscii(name, first.name()) ? first : node.attribute(Platform::WideToUtf8(name).c_str());
}

bool IsForbiddenInXml(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
}

} // namespace

bool IsXmlName(const char* name)
{
    if (name == nullptr || *name == '\0')
    {
        return false;
    }
    const auto isStart = [](unsigned char c)
    { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == ':' || c >= 0x80; };
    if (!isStart(static_cast<unsigned char>(*name)))
    {
        return false;
    }
    return std::all_of(name + 1, name + std::strlen(name),
                       [&isStart](char c)
                       {
                           const auto byte = static_cast<unsigned char>(c);
                           return isStart(byte) || (byte >= '0' && byte <= '9') || byte == '-' || byte == '.';
                       });
}

std::string MarkupOf(pugi::xml_node node)
{
    StringWriter writer;
    node.print(writer, "", MarkupFlags, pugi::encoding_utf8);
    return std::move(writer.text);
}

std::string ToXmlText(const std::wstring& text)
{
    std::string bytes = Platform::WideToUtf8(text);
    std::replace_if(bytes.begin(), bytes.end(), IsForbiddenInXml, ' ');
    return bytes;
}

std::string WithLineFeeds(const std::string& text)
{
    std::string result;
    for (std::size_t position = 0; position < text.size(); ++position)
    {
        if (text[position] != '\r')
        {
            result += text[position];
        }
        else if (position + 1 == text.size() || text[position + 1] != '\n')
        {
            result += '\n';
        }
    }
    return result;
}

QoxXMLNode* NodeAccess::MakeNode(std::shared_ptr<DocumentState> state, pugi::xml_node node)
{
    if (!node)
    {
        return nullptr;
    }
    auto* const result = new QoxXMLNode; // owned by the caller, by contract
    result->m_state = std::move(state);
    result->m_node = node.internal_object();
    return result;
}

pugi::xml_node NodeAccess::NodeOf(const QoxXMLNode& node)
{
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node.m_node));
}

const std::shared_ptr<DocumentState>& NodeAccess::StateOf(const QoxXMLNode& node)
{
    return node.m_state;
}

const std::shared_ptr<DocumentState>& NodeAccess::StateOf(const QoxXMLDocument& document)
{
    return document.m_state;
}

pugi::xml_node NodeAccess::Workshop(DocumentState& state)
{
    if (!state.workshop)
    {
        state.workshop = state.document.append_child("workshop");
    }
    return state.workshop;
}

pugi::xml_node NodeAccess::NewFreeElement(DocumentState& state, const char* name)
{
    return IsXmlName(name) ? Workshop(state).append_child(name) : pugi::xml_node();
}

} // namespace VantrelXml

using VantrelXml::NodeAccess;

// --- nodes of a list -------------------------------------------------------------------

struct QoxXMLNodeList::Entries
{
    std::shared_ptr<VantrelXml::DocumentState> state;
    std::vector<pugi::xml_node> nodes;
};

QoxXMLNodeList::QoxXMLNodeList() : m_entries(std::make_unique<Entries>()) {}

QoxXMLNodeList::~QoxXMLNodeList() = default;

QoxXMLNodeList* NodeAccess::MakeList(const std::shared_ptr<DocumentState>& state, pugi::xml_node parent,
                                     const char* name)
{
    std::vector<pugi::xml_node> nodes;
    for (pugi::xml_node child = parent.child(name); child; child = child.next_sibling(name))
    {
        nodes.push_back(child);
    }
    if (nodes.empty())
    {
        return nullptr;
    }
    auto* const list = new QoxXMLNodeList; // owned by the caller, by contract
    list->m_entries->state = state;
    list->m_entries->nodes = std::move(nodes);
    return list;
}

long QoxXMLNodeList::GetSize() const
{
    return static_cast<long>(m_entries->nodes.size());
}

QoxXMLNode* QoxXMLNodeList::operator[](long index) const
{
    if (index < 0 || index >= GetSize())
    {
        return nullptr;
    }
    return NodeAccess::MakeNode(m_entries->state, m_entries->nodes[static_cast<std::size_t>(index)]);
}

// --- document --------------------------------------------------------------------------

QoxXMLDocument::QoxXMLDocument() : m_state(std::make_shared<VantrelXml::DocumentState>()) {}

QoxXMLDocument::~QoxXMLDocument()
{
    // Rules must not make elements in a document that has gone.
    if (CurrentDocument() == this)
    {
        SetCurrentDocument(nullptr);
    }
}

QoxXMLNode* QoxXMLDocument::CreateNode(const std::wstring& name)
{
    return NodeAccess::MakeNode(m_state, NodeAccess::NewFreeElement(*m_state, Platform::WideToUtf8(name).c_str()));
}

QoxXMLNode* QoxXMLDocument::CreateNode1(const char* name)
{
    return name == nullptr ? nullptr : CreateNode(Platform::FromCodePage(name));
}

void QoxXMLDocument::AppendNode(QoxXMLNode* node)
{
    if (node == nullptr)
    {
        return;
    }
    pugi::xml_node element = NodeAccess::NodeOf(*node);
    if (NodeAccess::StateOf(*node) == m_state)
    {
        m_state->root = m_state->document.append_move(element);
    }
    else
    {
        m_state->root = m_state->document.append_copy(element);
    }
}

QoxXMLNode* QoxXMLDocument::LoadFromFile(const std::wstring& path)
{
    std::optional<Platform::FileBytes> bytes = Platform::ReadWholeFile(path);
    // The parser would take any other encoding for UTF-8, and the next save would lose the text.
    if (!bytes || !VantrelXml::IsReadable(bytes->View()))
    {
        return nullptr;
    }
    // Nodes that were handed out keep the former contents alive.
    m_state = std::make_shared<VantrelXml::DocumentState>();
    const std::size_t size = bytes->Size();
    // The parser works in the buffer and frees it with the document.
    const pugi::xml_parse_result result =
        m_state->document.load_buffer_inplace_own(bytes->Detach(), size, VantrelXml::ParseFlags);
    if (!result)
    {
        m_state = std::make_shared<VantrelXml::DocumentState>();
        return nullptr;
    }
    m_state->root = m_state->document.document_element();
    return NodeAccess::MakeNode(m_state, m_state->root);
}

QoxXMLNode* QoxXMLDocument::LoadFromFile1(const char* path)
{
    return path == nullptr ? nullptr : LoadFromFile(Platform::FromCodePage(path));
}

bool QoxXMLDocument::Save(const std::wstring& path)
{
    VantrelXml::StringWriter writer;
    writer.text = VantrelXml::Declaration;
    if (m_state->root)
    {
        m_state->root.print(writer, VantrelXml::Indentation, pugi::format_indent, pugi::encoding_utf8);
    }
    return Platform::SaveFileWhole(path, writer.text);
}

bool QoxXMLDocument::Save1(const char* path)
{
    return path != nullptr && Save(Platform::FromCodePage(path));
}

// --- node ------------------------------------------------------------------------------

QoxXMLNode::~QoxXMLNode() = default;

bool QoxXMLNode::AddAttribute(const std::wstring& name, const std::wstring& value)
{
    const std::string narrowName = Platform::WideToUtf8(name);
    if (!VantrelXml::IsXmlName(narrowName.c_str()))
    {
        return false;
    }
    pugi::xml_node node = NodeAccess::NodeOf(*this);
    pugi::xml_attribute attribute = node.attribute(narrowName.c_str());
    if (!attribute)
    {
        attribute = node.append_attribute(narrowName.c_str());
    }
    return attribute.set_value(VantrelXml::ToXmlText(value).c_str());
}

bool QoxXMLNode::AddAttribute1(const char* name, const char* value)
{
    return name != nullptr && value != nullptr &&
           AddAttribute(Platform::FromCodePage(name), Platform::FromCodePage(value));
}

bool QoxXMLNode::GetAttributeValue(const std::wstring& name, std::wstring& value) const
{
    const pugi::xml_attribute attribute = VantrelXml::FindAttribute(NodeAccess::NodeOf(*this), name);
    if (!attribute)
    {
        return false;
    }
    VantrelXml::AssignWide(value, attribute.value());
    return true;
}

bool QoxXMLNode::GetAttributeValue1(const char* name, char*& value) const
{
    if (name == nullptr)
    {
        return false;
    }
    std::wstring wide;
    if (!GetAttributeValue(Platform::FromCodePage(name), wide))
    {
        return false;
    }
    const std::string bytes = Platform::ToCodePage(wide);
    value = new char[bytes.size() + 1]; // owned by the caller, by contract
    std::memcpy(value, bytes.c_str(), bytes.size() + 1);
    return true;
}

void QoxXMLNode::AppendNode(QoxXMLNode* node)
{
    if (node == nullptr)
    {
        return;
    }
    pugi::xml_node parent = NodeAccess::NodeOf(*this);
    pugi::xml_node child = NodeAccess::NodeOf(*node);
    // A move fails where it would make a node its own descendant; then nothing happens.
    if (node->m_state == m_state)
    {
        parent.append_move(child);
    }
    else
    {
        parent.append_copy(child);
    }
}

QoxXMLNode* QoxXMLNode::AppendNode(const std::wstring& name, QoxXMLDocument* /*document*/)
{
    // The child can only be of the parent's own document.
    const std::string narrowName = Platform::WideToUtf8(name);
    if (!VantrelXml::IsXmlName(narrowName.c_str()))
    {
        return nullptr;
    }
    return NodeAccess::MakeNode(m_state, NodeAccess::NodeOf(*this).append_child(narrowName.c_str()));
}

QoxXMLNode* QoxXMLNode::SelectSingleNode(const std::wstring& path) const
{
    const std::string query = Platform::WideToUtf8(path);
    try
    {
        return NodeAccess::MakeNode(m_state, NodeAccess::NodeOf(*this).select_node(query.c_str()).node());
    }
    catch (const pugi::xpath_exception&)
    {
        return nullptr; // not a path: nothing matches it
    }
}

QoxXMLNodeList* QoxXMLNode::GetNodeList(const std::wstring& name) const
{
    return NodeAccess::MakeList(m_state, NodeAccess::NodeOf(*this), Platform::WideToUtf8(name).c_str());
}

QoxXMLNodeList* QoxXMLNode::GetNodeList1(const char* name) const
{
    return name == nullptr ? nullptr : GetNodeList(Platform::FromCodePage(name));
}

std::wstring QoxXMLNode::GetNodeName() const
{
    return Platform::Utf8ToWide(NodeAccess::NodeOf(*this).name());
}

std::wstring QoxXMLNode::GetXML() const
{
    return Platform::Utf8ToWide(VantrelXml::MarkupOf(NodeAccess::NodeOf(*this)));
}

void QoxXMLNode::SetNodeValue(const std::wstring& text)
{
    NodeAccess::NodeOf(*this).text().set(VantrelXml::WithLineFeeds(VantrelXml::ToXmlText(text)).c_str());
}

bool QoxXMLNode::GetNodeValueInCString(std::wstring& text) const
{
    const pugi::xml_text nodeText = NodeAccess::NodeOf(*this).text();
    if (!nodeText)
    {
        return false;
    }
    text = Platform::Utf8ToWide(nodeText.get());
    return true;
}

#include <Vantrel/QoxXml.h>

#include "Framework/XmlState.h"
#include "Platform/Files.h"
#include "Platform/Text.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace
{

/// Text is gathered in blocks of about this size: one that grew as a whole would be copied
/// over and over.
constexpr std::size_t BlockSize = std::size_t{ 1 } << 20;

/// Elements that are nested deeper stay in the document: taking them out would cost stack.
constexpr int MostDepth = 64;

constexpr std::string_view EmptyElementEnd = " />\n";

class DepthCheck : public pugi::xml_tree_walker
{
public:
    bool for_each(pugi::xml_node& /*node*/) override { return depth() < MostDepth; }
};

} // namespace

struct QoxXMLListWriter::Blocks : public pugi::xml_writer
{
    void write(const void* data, std::size_t size) override
    {
        if (texts.empty() || texts.back().size() + size > texts.back().capacity())
        {
            texts.emplace_back().reserve(std::max(BlockSize, size));
        }
        texts.back().append(static_cast<const char*>(data), size);
    }

    std::vector<std::string> texts;
};

QoxXMLListWriter::QoxXMLListWriter(QoxXMLNode& root) : m_root(root), m_blocks(std::make_unique<Blocks>()) {}

QoxXMLListWriter::~QoxXMLListWriter() = default;

void QoxXMLListWriter::Append(QoxXMLNode& child)
{
    pugi::xml_node element = VantrelXml::NodeAccess::NodeOf(child);
    element.print(*m_blocks, VantrelXml::Indentation, pugi::format_indent, pugi::encoding_utf8, 1);
    DepthCheck check;
    if (element.traverse(check))
    {
        // Its memory serves for the next one.
        element.parent().remove_child(element);
    }
}

bool QoxXMLListWriter::Save(const std::wstring& path)
{
    std::int32_t cause = 0;
    return Save(path, {}, cause);
}

bool QoxXMLListWriter::Save(const std::wstring& path, const std::function<void()>& beforeReplacing, std::int32_t& cause)
{
    Blocks rootText;
    VantrelXml::NodeAccess::NodeOf(m_root).print(rootText, VantrelXml::Indentation, pugi::format_indent,
                                                 pugi::encoding_utf8);
    std::string start = VantrelXml::Declaration;
    std::string end;
    for (const std::string& text : rootText.texts)
    {
        start += text;
    }
    if (!m_blocks->texts.empty())
    {
        // What was printed without children gets a start and an end.
        start.replace(start.size() - EmptyElementEnd.size(), EmptyElementEnd.size(), ">\n");
        end = std::string("</") + VantrelXml::NodeAccess::NodeOf(m_root).name() + ">\n";
    }
    std::vector<std::string_view> pieces = { start };
    pieces.insert(pieces.end(), m_blocks->texts.begin(), m_blocks->texts.end());
    pieces.push_back(end);
    Platform::FileCause fileCause = Platform::FileCause::None;
    const bool saved = Platform::SaveFileWhole(path, pieces, beforeReplacing, fileCause);
    cause = static_cast<std::int32_t>(fileCause);
    return saved;
}

bool QoxXMLListWriter::Save1(const char* path)
{
    return path != nullptr && Save(Platform::FromCodePage(path));
}

bool QoxXMLListWriter::Save1(const char* path, const std::function<void()>& beforeReplacing, std::int32_t& cause)
{
    return Save(path != nullptr ? Platform::FromCodePage(path) : std::wstring(), beforeReplacing, cause);
}

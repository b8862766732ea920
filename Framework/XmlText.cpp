#include "Framework/XmlText.h"

#include "Framework/XmlState.h"
#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstddef>
#include <cstring>
#include <utility>

namespace VantrelXml
{

namespace
{

/// Texts up to this length are converted without taking memory.
constexpr std::size_t QuickLength = 512;

/// What a list is prepared for before its length is known.
constexpr std::size_t UsualListLength = 8;

bool IsPlain(wchar_t c)
{
    return c >= 0x20 && c < 0x7f;
}

/// Bytes that are widened in one go: a fixed number of them, copied aside, so that the
/// compiler knows that they don't overlap and uses wide registers.
constexpr std::size_t Stride = 16;
constexpr std::uint64_t NotAscii = 0x8080808080808080;

/// Widens bytes one by one. False if one of them isn't ASCII; what was written is then of no use.
bool WidenAscii(const char* bytes, std::size_t length, wchar_t* text)
{
    std::uint64_t all = 0;
    std::size_t position = 0;
    for (; position + Stride <= length; position += Stride)
    {
        std::array<unsigned char, Stride> chunk;
        std::memcpy(chunk.data(), bytes + position, Stride);
        std::array<std::uint64_t, 2> words;
        std::memcpy(words.data(), bytes + position, Stride);
        all |= words[0] | words[1];
        for (std::size_t offset = 0; offset < Stride; ++offset)
        {
            text[position + offset] = static_cast<wchar_t>(chunk[offset]);
        }
    }
    for (; position < length; ++position)
    {
        const auto byte = static_cast<unsigned char>(bytes[position]);
        all |= byte;
        text[position] = static_cast<wchar_t>(byte);
    }
    return (all & NotAscii) == 0;
}

/// True if the wide text is that of the UTF-8 bytes.
bool EqualsUtf8(const std::wstring& text, const char* utf8)
{
    for (std::size_t position = 0; position < text.size(); ++position)
    {
        const auto byte = static_cast<unsigned char>(utf8[position]);
        if (byte >= 0x80)
        {
            // From here on it isn't one byte a character any more.
            return Platform::Utf8ToWide(utf8 + position) == std::wstring_view(text).substr(position);
        }
        if (byte == 0 || static_cast<wchar_t>(byte) != text[position])
        {
            return false;
        }
    }
    return utf8[text.size()] == '\0';
}

} // namespace

std::optional<std::size_t> NameFinder::Find(const char* name)
{
    for (std::size_t tried = 0; tried < m_names.size(); ++tried)
    {
        const std::size_t place = m_next < m_names.size() ? m_next : 0;
        m_next = place + 1;
        if (std::strcmp(m_names[place], name) == 0)
        {
            return place;
        }
    }
    return std::nullopt;
}

void AssignWide(std::wstring& text, const char* utf8)
{
    const std::size_t length = std::strlen(utf8);
    text.resize(length);
    if (!WidenAscii(utf8, length, text.data()))
    {
        text = Platform::Utf8ToWide({ utf8, length });
    }
}

void AppendAttribute(pugi::xml_node element, const char* name, std::wstring_view value)
{
    pugi::xml_attribute attribute = element.append_attribute(name);
    if (value.size() < QuickLength && std::all_of(value.begin(), value.end(), IsPlain))
    {
        std::array<char, QuickLength> bytes;
        std::transform(value.begin(), value.end(), bytes.begin(), [](wchar_t c) { return static_cast<char>(c); });
        bytes[value.size()] = '\0';
        attribute.set_value(bytes.data());
    }
    else
    {
        attribute.set_value(ToXmlText(std::wstring(value)).c_str());
    }
}

void AppendListElement(pugi::xml_node parent, const char* name, std::wstring_view value)
{
    AppendAttribute(parent.append_child(name), "Value", value);
}

void AssignShared(SharedText& text, const char* utf8)
{
    if (!EqualsUtf8(text.Get(), utf8))
    {
        std::wstring wide;
        AssignWide(wide, utf8);
        text = wide;
    }
}

ListReader::~ListReader()
{
    if (m_count != 0 && m_count != m_list.size())
    {
        Diverge(); // the file's list is shorter
    }
    if (m_diverged)
    {
        m_list = std::move(m_texts);
    }
}

void ListReader::Take(pugi::xml_node element)
{
    const char* const value = element.attribute("Value").value();
    if (!m_diverged && (m_count >= m_list.size() || !EqualsUtf8(m_list[m_count], value)))
    {
        Diverge();
    }
    if (m_diverged)
    {
        AssignWide(m_texts.emplace_back(), value);
    }
    ++m_count;
}

void ListReader::Diverge()
{
    if (!m_diverged)
    {
        m_diverged = true;
        const auto same = static_cast<std::ptrdiff_t>(std::min(m_count, m_list.size()));
        m_texts.reserve(UsualListLength);
        m_texts.assign(m_list.begin(), m_list.begin() + same);
    }
}

std::string UnknownParts::Markup() const
{
    return m_element ? MarkupOf(m_element) : std::string();
}

pugi::xml_node UnknownParts::Element()
{
    if (!m_element)
    {
        m_element = m_document.emplace().append_child("unknown");
    }
    return m_element;
}

void AppendUnknown(pugi::xml_node element, const std::string& markup)
{
    if (markup.empty())
    {
        return;
    }
    pugi::xml_document document;
    document.load_buffer(markup.data(), markup.size(), ParseFlags);
    const pugi::xml_node unknown = document.document_element();
    for (const pugi::xml_attribute attribute : unknown.attributes())
    {
        element.append_copy(attribute);
    }
    for (const pugi::xml_node child : unknown.children())
    {
        element.append_copy(child);
    }
}

} // namespace VantrelXml

#include "Framework/XmlText.h"

#include "Framework/XmlState.h"
#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace VantrelXml
{

namespace
{

/// Texts up to this length are converted without taking memory.
constexpr std::size_t QuickLength = 512;

/// Elements of the same name in a row, from this one on.
std::size_t CountAlike(pugi::xml_node element)
{
    std::size_t count = 0;
    for (const char* const name = element.name(); element && std::strcmp(element.name(), name) == 0;
         element = element.next_sibling())
    {
        ++count;
    }
    return count;
}

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

void ReadListElement(std::vector<std::wstring>& list, pugi::xml_node element, bool& seen)
{
    if (!seen)
    {
        list.clear();
        list.reserve(CountAlike(element));
        seen = true;
    }
    AssignWide(list.emplace_back(), element.attribute("Value").value());
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

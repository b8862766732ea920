#include "Framework/XmlText.h"

#include "Framework/XmlState.h"
#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <cstring>

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

/// Bytes that are widened in one go; a fixed number, so that the compiler uses wide registers.
constexpr std::size_t Stride = 16;

/// Widens bytes one by one. False if one of them isn't ASCII; what was written is then of no use.
bool WidenAscii(const char* bytes, std::size_t length, wchar_t* text)
{
    unsigned char all = 0;
    std::size_t position = 0;
    for (; position + Stride <= length; position += Stride)
    {
        for (std::size_t offset = 0; offset < Stride; ++offset)
        {
            const auto byte = static_cast<unsigned char>(bytes[position + offset]);
            all |= byte;
            text[position + offset] = static_cast<wchar_t>(byte);
        }
    }
    for (; position < length; ++position)
    {
        const auto byte = static_cast<unsigned char>(bytes[position]);
        all |= byte;
        text[position] = static_cast<wchar_t>(byte);
    }
    return all < 0x80;
}

} // namespace

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
        list.reserve(UsualListLength);
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

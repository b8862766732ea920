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

bool IsPlain(wchar_t c)
{
    return c >= 0x20 && c < 0x7f;
}

} // namespace

void AssignWide(std::wstring& text, const char* utf8)
{
    const std::size_t length = std::strlen(utf8);
    const char* const end = utf8 + length;
    const bool ascii = std::none_of(utf8, end, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    if (ascii)
    {
        text.assign(utf8, end);
    }
    else
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
        seen = true;
    }
    AssignWide(list.emplace_back(), element.attribute("Value").value());
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

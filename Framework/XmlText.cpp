#include "Framework/XmlText.h"

#include "Framework/NumberText.h"
#include "Framework/XmlState.h"
#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace VantrelXml
{

namespace
{

/// Texts up to this length are converted without taking memory.
constexpr std::size_t QuickLength = 512;

/// Names that a table of attributes may have.
constexpr std::size_t MostNames = 32;

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

/// True if the wide text is the same as the bytes, all of them ASCII.
bool EqualsAscii(const wchar_t* text, const char* bytes, std::size_t length)
{
    std::size_t position = 0;
    for (; position + Stride <= length; position += Stride)
    {
        std::uint32_t differences = 0;
        for (std::size_t offset = 0; offset < Stride; ++offset)
        {
            const auto byte = static_cast<unsigned char>(bytes[position + offset]);
            const auto wide = static_cast<char32_t>(text[position + offset]);
            differences |= (wide ^ byte) | (byte & 0x80);
        }
        if (differences != 0)
        {
            return false;
        }
    }
    return std::equal(text + position, text + length, bytes + position,
                      [](wchar_t wide, char byte)
                      { return static_cast<unsigned char>(byte) < 0x80 && wide == static_cast<wchar_t>(byte); });
}

/// True if the wide text is that of the UTF-8 bytes.
bool EqualsUtf8(const std::wstring& text, const char* utf8)
{
    const std::size_t length = std::strlen(utf8);
    if (length == text.size())
    {
        // Of as many bytes as the text has characters, each is one, unless both are odd.
        return EqualsAscii(text.data(), utf8, length) || Platform::Utf8ToWide({ utf8, length }) == text;
    }
    return length > text.size() && Platform::Utf8ToWide({ utf8, length }) == text;
}

/// Narrows characters one by one and ends them with a zero. False if one of them isn't plain;
/// what was written is then of no use.
bool NarrowPlain(std::wstring_view text, char* bytes)
{
    bool plain = true;
    std::size_t position = 0;
    for (; position + Stride <= text.size(); position += Stride)
    {
        std::array<char, Stride> chunk;
        std::uint32_t odd = 0;
        for (std::size_t offset = 0; offset < Stride; ++offset)
        {
            const auto wide = static_cast<char32_t>(text[position + offset]);
            odd |= wide - 0x20 > 0x5e ? 1U : 0U;
            chunk[offset] = static_cast<char>(wide);
        }
        std::memcpy(bytes + position, chunk.data(), Stride);
        plain = plain && odd == 0;
    }
    for (; position < text.size(); ++position)
    {
        plain = plain && IsPlain(text[position]);
        bytes[position] = static_cast<char>(text[position]);
    }
    bytes[position] = '\0';
    return plain;
}

/// Finds names in a table of them. Files list attributes in the table's order, so the next
/// one is nearly always the right one.
class NameFinder
{
public:
    explicit NameFinder(std::span<const char* const> names) : m_names(names) {}

    /// The place of the name in the table; nothing if it isn't there.
    std::optional<std::size_t> Find(const char* name)
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

private:
    std::span<const char* const> m_names;
    std::size_t m_next = 0;
};

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

pugi::xml_attribute AttributeFiller::Take()
{
    const pugi::xml_attribute taken = m_next;
    m_next = taken.next_attribute();
    return taken;
}

void AttributeFiller::Text(std::wstring_view value)
{
    pugi::xml_attribute attribute = Take();
    std::array<char, QuickLength> bytes;
    if (value.size() < QuickLength && NarrowPlain(value, bytes.data()))
    {
        attribute.set_value(bytes.data());
    }
    else
    {
        attribute.set_value(ToXmlText(std::wstring(value)).c_str());
    }
}

void AttributeFiller::Number(double value)
{
    pugi::xml_attribute attribute = Take();
    if (std::isfinite(value))
    {
        std::string text;
        AppendNumberText(text, value);
        attribute.set_value(text.c_str());
    }
    else
    {
        m_element.remove_attribute(attribute);
    }
}

std::string EmptyElement(const char* name, std::span<const char* const> attributes)
{
    std::string markup = std::string("<") + name;
    for (const char* const attribute : attributes)
    {
        markup += std::string(" ") + attribute + "=\"\"";
    }
    return markup + "/>";
}

void AppendListElement(pugi::xml_node parent, pugi::xml_node listTemplate, std::wstring_view value)
{
    AttributeFiller(parent.append_copy(listTemplate)).Text(value);
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

void UnknownParts::Keep(const pugi::xml_attribute& attribute)
{
    if (!m_attributeNames.contains(attribute.name()))
    {
        m_attributeNames.insert(Element().append_copy(attribute).name());
    }
}

std::string UnknownParts::Markup() const
{
    if (!m_element)
    {
        return {};
    }
    // References may name what is no character, and a file with its bytes would not be read again.
    std::string markup = MarkupOf(m_element);
    return Platform::IsUtf8(markup) ? markup : Platform::WideToUtf8(Platform::Utf8ToWide(markup));
}

pugi::xml_node UnknownParts::Element()
{
    if (!m_element)
    {
        m_element = m_document.emplace().append_child("unknown");
    }
    return m_element;
}

void ReadAttributes(pugi::xml_node element, std::span<const char* const> names, const AttributeReader& reader,
                    UnknownParts& unknown)
{
    NameFinder finder(names);
    std::bitset<MostNames> taken;
    for (pugi::xml_attribute attribute = element.first_attribute(); attribute; attribute = attribute.next_attribute())
    {
        const std::optional<std::size_t> place = finder.Find(attribute.name());
        if (!place)
        {
            unknown.Keep(attribute);
        }
        else if (!taken[*place])
        {
            taken.set(*place);
            reader(*place, attribute.value());
        }
    }
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

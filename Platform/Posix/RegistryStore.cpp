#include "Platform/Posix/RegistryStore.h"

#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace Platform::Posix
{
namespace
{

constexpr std::string_view FileHeader = "Windows Registry Editor Version 5.00";
constexpr std::string_view Blanks = " \t";
constexpr std::string_view NumberMark = "dword:";
constexpr std::string_view TextBytesMark = "hex(1):";
constexpr std::string_view BytesMark = "hex";

std::string_view Trim(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(Blanks);
    if (start == std::string_view::npos)
    {
        return {};
    }
    return text.substr(start, text.find_last_not_of(Blanks) - start + 1);
}

bool HasControlCharacter(std::wstring_view text)
{
    return std::any_of(text.begin(), text.end(),
                       [](wchar_t character) { return static_cast<char32_t>(character) < 0x20 || character == 0x7F; });
}

/// The bytes of a file as UTF-8 without a mark.
std::string Decode(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE"))
    {
        std::u16string units;
        units.reserve(bytes.size() / 2);
        for (std::size_t index = 2; index + 1 < bytes.size(); index += 2)
        {
            const auto low = static_cast<unsigned char>(bytes[index]);
            const auto high = static_cast<unsigned char>(bytes[index + 1]);
            units += static_cast<char16_t>(low | (high << 8));
        }
        return WideToUtf8(Utf16ToWide(units));
    }
    constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
    return std::string(bytes.starts_with(Utf8Mark) ? bytes.substr(Utf8Mark.size()) : bytes);
}

std::string Quoted(std::wstring_view text)
{
    std::string result = "\"";
    for (const char character : WideToUtf8(text))
    {
        if (character == '"' || character == '\\')
        {
            result += '\\';
        }
        result += character;
    }
    return result + '"';
}

/// Takes a quoted text from the start of `rest`. Nothing if it has no end.
std::optional<std::wstring> TakeQuoted(std::string_view& rest)
{
    if (!rest.starts_with('"'))
    {
        return std::nullopt;
    }
    std::string text;
    for (std::size_t index = 1; index < rest.size(); ++index)
    {
        if (rest[index] == '"')
        {
            rest.remove_prefix(index + 1);
            return Utf8ToWide(text);
        }
        if (rest[index] == '\\' && index + 1 < rest.size())
        {
            ++index;
        }
        text += rest[index];
    }
    return std::nullopt;
}

/// A text with line breaks or the like, as the bytes of its UTF-16 form with terminator.
std::string TextAsBytes(std::wstring_view text)
{
    std::string result(TextBytesMark);
    for (const char16_t unit : WideToUtf16(text))
    {
        std::array<char, 8> bytes = {};
        std::snprintf(bytes.data(), bytes.size(), "%02x,%02x,", unit & 0xFF, unit >> 8);
        result += bytes.data();
    }
    return result + "00,00";
}

std::optional<std::wstring> TextFromBytes(std::string_view list)
{
    std::vector<unsigned char> bytes;
    while (!list.empty())
    {
        const std::size_t comma = std::min(list.find(','), list.size());
        // A break in the line is a backslash with the line's end and blanks behind it.
        std::string_view item = list.substr(0, comma);
        const std::size_t start = std::min(item.find_first_not_of(" \t\\\r\n"), item.size());
        item.remove_prefix(start);
        item = Trim(item);
        list.remove_prefix(std::min(comma + 1, list.size()));
        unsigned char byte = 0;
        const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), byte, 16);
        if (error != std::errc() || end != item.data() + item.size())
        {
            return std::nullopt;
        }
        bytes.push_back(byte);
    }
    std::u16string units;
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2)
    {
        units += static_cast<char16_t>(bytes[index] | (bytes[index + 1] << 8));
    }
    if (units.ends_with(u'\0'))
    {
        units.pop_back();
    }
    return Utf16ToWide(units);
}

bool IsBelow(std::wstring_view key, std::wstring_view above)
{
    return key.size() > above.size() && key[above.size()] == L'\\' && EqualsNoCase(key.substr(0, above.size()), above);
}

bool IsOrIsBelow(std::wstring_view key, std::wstring_view above)
{
    return EqualsNoCase(key, above) || IsBelow(key, above);
}

void AddOnce(std::vector<std::wstring>& names, std::wstring_view name)
{
    if (std::none_of(names.begin(), names.end(),
                     [name](const std::wstring& known) { return EqualsNoCase(known, name); }))
    {
        names.emplace_back(name);
    }
}

} // namespace

RegistryStore::RegistryStore(std::string_view bytes)
{
    m_sections.emplace_back();
    const std::string text = Decode(bytes);
    std::string pending;
    for (std::size_t start = 0; start < text.size();)
    {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, end - start);
        start = end + 1;
        while (line.ends_with('\r'))
        {
            line.pop_back();
        }
        if (!pending.empty() && Trim(line).find_first_of("[\"@") == 0)
        {
            // The value breaks off; what follows isn't a part of it.
            AddLine(std::move(pending));
            pending.clear();
        }
        const bool continued =
            Trim(line).ends_with('\\') && (!pending.empty() || line.find("=hex") != std::string::npos);
        pending += line;
        if (continued && start < text.size())
        {
            pending += '\n';
            continue;
        }
        AddLine(std::move(pending));
        pending.clear();
    }
}

void RegistryStore::AddLine(std::string raw)
{
    if (Trim(raw).starts_with('['))
    {
        m_sections.push_back(ParseHeader(std::move(raw)));
        return;
    }
    m_sections.back().lines.push_back(ParseLine(std::move(raw)));
}

RegistryStore::Section RegistryStore::ParseHeader(std::string raw)
{
    Section section;
    const std::string_view line = Trim(raw);
    const std::size_t end = line.rfind(']');
    // With a minus sign it is an order to delete the key, which a store has no use for.
    if (end != std::string_view::npos && end > 1 && line[1] != '-')
    {
        section.isKey = true;
        section.key = Utf8ToWide(line.substr(1, end - 1));
    }
    section.header = std::move(raw);
    return section;
}

RegistryStore::Line RegistryStore::ParseLine(std::string raw)
{
    Line line;
    std::string_view rest = Trim(raw);
    std::optional<std::wstring> name;
    if (rest.starts_with('@'))
    {
        rest.remove_prefix(1);
        name.emplace();
    }
    else
    {
        name = TakeQuoted(rest);
    }
    rest = Trim(rest);
    if (name && rest.starts_with('='))
    {
        line.name = std::move(*name);
        ParseData(Trim(rest.substr(1)), line);
    }
    line.raw = std::move(raw);
    return line;
}

void RegistryStore::ParseData(std::string_view data, Line& line)
{
    line.kind = Kind::OtherValue;
    if (data.starts_with('"'))
    {
        auto text = TakeQuoted(data);
        if (!text || !Trim(data).empty())
        {
            line.kind = Kind::NoValue;
            return;
        }
        line.kind = Kind::Text;
        line.text = std::move(*text);
    }
    else if (data.starts_with(NumberMark))
    {
        data.remove_prefix(NumberMark.size());
        const auto [end, error] = std::from_chars(data.data(), data.data() + data.size(), line.number, 16);
        const bool good = error == std::errc() && end == data.data() + data.size();
        line.kind = good ? Kind::Number : Kind::NoValue;
    }
    else if (data.starts_with(TextBytesMark))
    {
        if (auto text = TextFromBytes(data.substr(TextBytesMark.size())))
        {
            line.kind = Kind::Text;
            line.text = std::move(*text);
        }
    }
    else if (!data.starts_with(BytesMark))
    {
        line.kind = Kind::NoValue;
    }
}

std::string RegistryStore::Bytes() const
{
    std::string bytes;
    const auto& first = m_sections.front().lines;
    const bool hasHeader =
        std::any_of(first.begin(), first.end(), [](const Line& line) { return line.raw == FileHeader; });
    if (!hasHeader)
    {
        bytes += FileHeader;
        bytes += '\n';
    }
    for (const Section& section : m_sections)
    {
        if (!section.header.empty())
        {
            if (!bytes.ends_with("\n\n"))
            {
                bytes += '\n';
            }
            bytes += section.header + '\n';
        }
        for (const Line& line : section.lines)
        {
            bytes += line.raw + '\n';
        }
    }
    return bytes;
}

template <typename Sections>
auto RegistryStore::FindIn(Sections& sections, std::wstring_view key, std::wstring_view name)
    -> decltype(sections.front().lines.data())
{
    // The last one counts, as it does when the file is taken into a registry.
    for (auto section = sections.rbegin(); section != sections.rend(); ++section)
    {
        if (!section->isKey || !EqualsNoCase(section->key, key))
        {
            continue;
        }
        const auto line = std::find_if(section->lines.rbegin(), section->lines.rend(),
                                       [name](const Line& candidate) {
                                           return candidate.kind != Kind::NoValue && EqualsNoCase(candidate.name, name);
                                       });
        if (line != section->lines.rend())
        {
            return &*line;
        }
    }
    return nullptr;
}

const RegistryStore::Line* RegistryStore::Find(std::wstring_view key, std::wstring_view name) const
{
    return FindIn(m_sections, key, name);
}

std::optional<std::wstring> RegistryStore::Text(std::wstring_view key, std::wstring_view name) const
{
    const Line* line = Find(key, name);
    return line != nullptr && line->kind == Kind::Text ? std::optional(line->text) : std::nullopt;
}

std::optional<std::uint32_t> RegistryStore::Number(std::wstring_view key, std::wstring_view name) const
{
    const Line* line = Find(key, name);
    return line != nullptr && line->kind == Kind::Number ? std::optional(line->number) : std::nullopt;
}

bool RegistryStore::HasKey(std::wstring_view key) const
{
    return std::any_of(m_sections.begin(), m_sections.end(),
                       [key](const Section& section) { return section.isKey && IsOrIsBelow(section.key, key); });
}

std::vector<std::wstring> RegistryStore::Subkeys(std::wstring_view key) const
{
    std::vector<std::wstring> names;
    for (const Section& section : m_sections)
    {
        if (section.isKey && IsBelow(section.key, key))
        {
            const std::wstring_view below = std::wstring_view(section.key).substr(key.size() + 1);
            AddOnce(names, below.substr(0, below.find(L'\\')));
        }
    }
    return names;
}

std::vector<std::wstring> RegistryStore::ValueNames(std::wstring_view key) const
{
    std::vector<std::wstring> names;
    for (const Section& section : m_sections)
    {
        if (!section.isKey || !EqualsNoCase(section.key, key))
        {
            continue;
        }
        for (const Line& line : section.lines)
        {
            if (line.kind != Kind::NoValue)
            {
                AddOnce(names, line.name);
            }
        }
    }
    return names;
}

bool RegistryStore::SetText(std::wstring_view key, std::wstring_view name, std::wstring_view text)
{
    Line line;
    line.kind = Kind::Text;
    line.name = name;
    line.text = text;
    line.raw = HasControlCharacter(text) ? TextAsBytes(text) : Quoted(text);
    return Set(key, std::move(line));
}

bool RegistryStore::SetNumber(std::wstring_view key, std::wstring_view name, std::uint32_t number)
{
    std::array<char, 16> data = {};
    std::snprintf(data.data(), data.size(), "dword:%08x", number);
    Line line;
    line.kind = Kind::Number;
    line.name = name;
    line.number = number;
    line.raw = data.data();
    return Set(key, std::move(line));
}

bool RegistryStore::Set(std::wstring_view key, Line line)
{
    if (HasControlCharacter(key) || HasControlCharacter(line.name))
    {
        return false;
    }
    line.raw = (line.name.empty() ? std::string("@") : Quoted(line.name)) + '=' + line.raw;
    if (Line* known = FindIn(m_sections, key, line.name))
    {
        *known = std::move(line);
        return true;
    }
    auto section =
        std::find_if(m_sections.rbegin(), m_sections.rend(),
                     [key](const Section& candidate) { return candidate.isKey && EqualsNoCase(candidate.key, key); });
    if (section == m_sections.rend())
    {
        Section made;
        made.isKey = true;
        made.key = key;
        made.header = '[' + WideToUtf8(key) + ']';
        m_sections.push_back(std::move(made));
        section = m_sections.rbegin();
    }
    // Before the blank lines that part it from the next section.
    auto place = section->lines.end();
    while (place != section->lines.begin() && Trim(std::prev(place)->raw).empty())
    {
        --place;
    }
    section->lines.insert(place, std::move(line));
    return true;
}

void RegistryStore::DeleteKey(std::wstring_view key)
{
    std::erase_if(m_sections, [key](const Section& section) { return section.isKey && IsOrIsBelow(section.key, key); });
}

} // namespace Platform::Posix

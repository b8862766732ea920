#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Platform::Posix
{

/// The contents of a registry file: sections of keys with values, as registry editors
/// export them. What isn't understood is kept as it stands when the file is written again.
class RegistryStore
{
public:
    /// Reads a file's bytes, UTF-8 or UTF-16 with a byte order mark. Lines that aren't
    /// understood never make it fail.
    explicit RegistryStore(std::string_view bytes);

    /// The file's bytes, in UTF-8.
    std::string Bytes() const;

    // Keys are full, with the name of their root, `\` between the parts and none at the ends.

    std::optional<std::wstring> Text(std::wstring_view key, std::wstring_view name) const;
    std::optional<std::uint32_t> Number(std::wstring_view key, std::wstring_view name) const;
    bool HasKey(std::wstring_view key) const;
    std::vector<std::wstring> Subkeys(std::wstring_view key) const;
    std::vector<std::wstring> ValueNames(std::wstring_view key) const;

    /// False if the name or the key has characters that can't stand in the file.
    bool SetText(std::wstring_view key, std::wstring_view name, std::wstring_view text);
    bool SetNumber(std::wstring_view key, std::wstring_view name, std::uint32_t number);

    /// Removes the key with everything below it.
    void DeleteKey(std::wstring_view key);

private:
    enum class Kind
    {
        NoValue,
        Text,
        Number,
        OtherValue,
    };

    struct Line
    {
        std::string raw;
        Kind kind = Kind::NoValue;
        std::wstring name;
        std::wstring text;
        std::uint32_t number = 0;
    };

    struct Section
    {
        std::string header; ///< Empty for what stands before the first section.
        bool isKey = false;
        std::wstring key;
        std::vector<Line> lines;
    };

    void AddLine(std::string raw);
    const Line* Find(std::wstring_view key, std::wstring_view name) const;
    bool Set(std::wstring_view key, Line line);

    template <typename Sections>
    static auto FindIn(Sections& sections, std::wstring_view key, std::wstring_view name)
        -> decltype(sections.front().lines.data());

    static Line ParseLine(std::string raw);
    static void ParseData(std::string_view data, Line& line);
    static Section ParseHeader(std::string raw);

    std::vector<Section> m_sections;
};

} // namespace Platform::Posix

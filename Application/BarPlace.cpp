#include "Application/BarPlace.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace
{

constexpr int FloatingState = 1; // bits of a bar's state
constexpr int HiddenState = 2;

constexpr int FirstSide = 1;
constexpr int LastSide = 4;

// The manager goes through all layers and rows up to the last one that a bar is in.
constexpr int LastLayer = 100;
constexpr int Furthest = 32000; // pixels, as far as window systems count

std::optional<int> NumberOf(std::wstring_view text)
{
    std::string digits;
    for (const wchar_t character : text)
    {
        constexpr wchar_t LastOfAscii = 0x7F;
        digits += character <= LastOfAscii ? static_cast<char>(character) : '?';
    }
    int number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && stopped == end ? std::optional(number) : std::nullopt;
}

/// What the text says of a bar: `name=<bar>;<key>=<number>;...`. Empty if nothing.
std::wstring_view PartOf(std::wstring_view layout, std::wstring_view bar)
{
    const std::wstring start = L"name=" + std::wstring(bar) + L";";
    while (!layout.empty())
    {
        const std::wstring_view part = layout.substr(0, layout.find(L'|'));
        if (part.starts_with(start))
        {
            return part;
        }
        layout.remove_prefix(std::min(part.size() + 1, layout.size()));
    }
    return {};
}

std::optional<int> ValueOf(std::wstring_view part, std::wstring_view key)
{
    const std::wstring start = L";" + std::wstring(key) + L"=";
    const std::size_t at = part.find(start);
    if (at == std::wstring_view::npos)
    {
        return std::nullopt;
    }
    part.remove_prefix(at + start.size());
    return NumberOf(part.substr(0, part.find(L';')));
}

} // namespace

std::optional<BarPlace> SavedBarPlace(std::wstring_view layout, std::wstring_view bar)
{
    const std::wstring_view part = PartOf(layout, bar);
    bool whole = true;
    const auto value = [&](std::wstring_view key, int least, int most)
    {
        const std::optional<int> number = ValueOf(part, key);
        whole = whole && number.has_value();
        return std::clamp(number.value_or(0), least, most);
    };
    BarPlace place;
    const std::optional<int> state = ValueOf(part, L"state");
    const std::optional<int> side = ValueOf(part, L"dir");
    if (!state || !side || *side < FirstSide || *side > LastSide)
    {
        return std::nullopt;
    }
    place.shown = (*state & HiddenState) == 0;
    place.floating = (*state & FloatingState) != 0;
    place.side = *side;
    place.layer = value(L"layer", 0, LastLayer);
    place.row = value(L"row", 0, LastLayer);
    place.position = value(L"pos", 0, Furthest);
    place.floatingX = value(L"floatx", -Furthest, Furthest);
    place.floatingY = value(L"floaty", -Furthest, Furthest);
    place.floatingWidth = value(L"floatw", -1, Furthest);
    place.floatingHeight = value(L"floath", -1, Furthest);
    return whole ? std::optional(place) : std::nullopt;
}

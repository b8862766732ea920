#include "Application/CommandIcons.h"

#include "Application/Commands.h"
#include "Application/IconSources.h"

#include <wx/icon.h>
#include <wx/settings.h>

#include <algorithm>

namespace
{

constexpr int IconUnits = 16;

// What tells an icon apart has a colour that stands out from the lines on both backgrounds.
constexpr std::string_view AccentOnLight = "#1f6fc6";
constexpr std::string_view AccentOnDark = "#6cb2ff";
constexpr double LightInk = 0.5;

struct NamedCommand
{
    int id;
    const char* icon;
};

// Those of the menu that a right click on the list opens, which no table of menus has.
constexpr std::array ListCommands = {
    NamedCommand{ CommandEditRuleHere, "edit-rule" },
    NamedCommand{ CommandTickRule, "tick-rule" },
    NamedCommand{ CommandSelectAllRules, "select-all" },
};

template <typename Table>
const char* IconNameIn(const Table& table, int command)
{
    const auto* const found =
        std::find_if(table.begin(), table.end(), [command](const auto& row) { return row.id == command; });
    return found == table.end() ? nullptr : found->icon;
}

const IconSource* FindSource(std::string_view name)
{
    const auto* const source = std::find_if(IconSources.begin(), IconSources.end(),
                                            [name](const IconSource& icon) { return icon.name == name; });
    return source == IconSources.end() ? nullptr : source;
}

wxString TextOf(std::string_view utf8)
{
    return wxString::FromUTF8(utf8.data(), utf8.size());
}

wxBitmapBundle Picture(const wxString& svg, int size)
{
    return wxBitmapBundle::FromSVG(svg.utf8_str(), wxSize(size, size));
}

} // namespace

wxBitmapBundle NamedIcon(std::string_view name, const wxColour& ink)
{
    const IconSource* const source = FindSource(name);
    if (source == nullptr)
    {
        return {};
    }
    const wxColour lines = ink.IsOk() ? ink : wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
    wxString svg = TextOf(source->svg);
    // The accent first: the colour of the lines may be any, the one of accents too.
    svg.Replace(TextOf(IconAccent), TextOf(lines.GetLuminance() > LightInk ? AccentOnDark : AccentOnLight));
    svg.Replace(TextOf(IconInk), lines.GetAsString(wxC2S_HTML_SYNTAX));
    return Picture(svg, IconUnits);
}

wxBitmapBundle CommandIcon(int command, const wxColour& ink)
{
    const char* name = IconNameIn(CommandTable, command);
    if (name == nullptr)
    {
        name = IconNameIn(ListCommands, command);
    }
    return name == nullptr ? wxBitmapBundle() : NamedIcon(name, ink);
}

wxBitmapBundle ProgramPicture(int size)
{
    const IconSource* const source = FindSource("program");
    return source == nullptr ? wxBitmapBundle() : Picture(TextOf(source->svg), size);
}

wxIconBundle ProgramIcons(int largest)
{
    wxIconBundle icons;
    const wxBitmapBundle picture = ProgramPicture();
    for (const int size : { 16, 24, 32, 48, 64, 256 })
    {
        if (size > largest)
        {
            break;
        }
        wxIcon icon;
        icon.CopyFromBitmap(picture.GetBitmap({ size, size }));
        icons.AddIcon(icon);
    }
    return icons;
}

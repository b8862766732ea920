#include "Application/CommandIcons.h"

#include "Application/Commands.h"
#include "Application/IconSources.h"

#include <wx/icon.h>
#include <wx/settings.h>

#include <algorithm>
#include <string>

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

void ReplaceAll(std::string& text, std::string_view what, std::string_view with)
{
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
    {
        text.replace(at, what.size(), with);
    }
}

} // namespace

wxBitmapBundle NamedIcon(std::string_view name, const wxColour& ink)
{
    const auto* const source = std::find_if(IconSources.begin(), IconSources.end(),
                                            [name](const IconSource& icon) { return icon.name == name; });
    if (source == IconSources.end())
    {
        return {};
    }
    const wxColour lines = ink.IsOk() ? ink : wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
    std::string svg(source->svg);
    // The accent first: the colour of the lines may be any, the one of accents too.
    ReplaceAll(svg, IconAccent, lines.GetLuminance() > LightInk ? AccentOnDark : AccentOnLight);
    ReplaceAll(svg, IconInk, lines.GetAsString(wxC2S_HTML_SYNTAX).ToStdString());
    return wxBitmapBundle::FromSVG(svg.c_str(), wxSize(IconUnits, IconUnits));
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
    const auto* const source = std::find_if(IconSources.begin(), IconSources.end(),
                                            [](const IconSource& icon) { return icon.name == "program"; });
    return source == IconSources.end() ? wxBitmapBundle()
                                       : wxBitmapBundle::FromSVG(std::string(source->svg).c_str(), wxSize(size, size));
}

wxIconBundle ProgramIcons()
{
    wxIconBundle icons;
    const wxBitmapBundle picture = ProgramPicture();
    for (const int size : { 16, 24, 32, 48, 64, 256 })
    {
        wxIcon icon;
        icon.CopyFromBitmap(picture.GetBitmap({ size, size }));
        icons.AddIcon(icon);
    }
    return icons;
}

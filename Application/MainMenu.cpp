#include "Application/MainMenu.h"

#include "Application/CommandIcons.h"
#include "Application/Commands.h"
#include "Platform/MenuIcons.h"

#include <wx/bitmap.h>
#include <wx/menu.h>
#include <wx/menuitem.h>

#include <algorithm>
#include <cstddef>
#include <tuple>

namespace
{

constexpr int IconSize = 16;

wxBitmapBundle DisabledIconOf(const wxBitmapBundle& icon)
{
    if (!icon.IsOk())
    {
        return {};
    }
    return wxBitmapBundle::FromBitmap(icon.GetBitmap({ IconSize, IconSize }).ConvertToDisabled());
}

/// The command of a bar that does the same and has a number of its own; else the command itself.
const Command& ToolBarTwin(const Command& command)
{
    const auto* const twin =
        std::find_if(CommandTable.begin(), CommandTable.end(),
                     [&command](const Command& other) { return !other.menu && other.text == command.text; });
    return twin != CommandTable.end() ? *twin : command;
}

/// The item with which the one given stands in a menu: itself, its menu's items, or those of a menu in it.
const CQOXRMMenuItems* HolderOf(const CQOXRMMenuItems& item, const CQOXRMMenuItems& group)
{
    const auto isItem = [&item](const auto& child) { return child.get() == &item; };
    if (std::any_of(group.Children().begin(), group.Children().end(), isItem))
    {
        return &group;
    }
    for (const auto& child : group.Children())
    {
        if (std::any_of(child->Children().begin(), child->Children().end(), isItem))
        {
            return child.get();
        }
    }
    return nullptr;
}

} // namespace

MainMenu::MainMenu(wxMenuBar& menuBar)
{
    std::ignore = Platform::ShowIconsInMenus(); // without them the menus are as useful
    m_bar.ShowIn(menuBar);
    for (const TextId menuId : MenuTable)
    {
        CQOXRMMenuItems& menu = m_bar.AddItem(MenuFlag::Popup, wxID_ANY, LoadText(menuId), {}, 0, 0, {});
        for (const Command& command : CommandTable)
        {
            if (command.menu != menuId)
            {
                continue;
            }
            if (command.separatorBefore)
            {
                menu.AddItem(MenuFlag::Separator, wxID_SEPARATOR, {}, {}, 0, 0, {});
            }
            const Command& twin = ToolBarTwin(command);
            const wxBitmapBundle icon = CommandIcon(command.id);
            CQOXRMMenuItems& item =
                menu.AddItem(command.kind == wxITEM_CHECK ? MenuFlag::Checkable : 0, command.id, LoadText(command.text),
                             icon, command.id, twin.id, DisabledIconOf(icon));
            item.ShownItem()->SetHelp(LoadText(command.tip));
        }
    }
}

wxMenu* MainMenu::MenuOf(TextId menu) const
{
    const auto* const found = std::find(MenuTable.begin(), MenuTable.end(), menu);
    return found == MenuTable.end() ? nullptr
                                    : m_bar.Children()[static_cast<std::size_t>(found - MenuTable.begin())]->Menu();
}

std::optional<wxSize> MainMenu::SizeOf(const CQOXRMMenuItems& item, const wxSize& dotsPerInch) const
{
    constexpr int LeastWidth = 100;
    constexpr int PassedHeight = 200;
    for (const auto& group : m_bar.Children())
    {
        const CQOXRMMenuItems* const holder = HolderOf(item, *group);
        if (holder == nullptr)
        {
            continue;
        }
        int width = LeastWidth;
        for (const auto& member : holder->Children())
        {
            wxSize size(width, PassedHeight);
            member->MeasureItem(size);
            width = std::max(width, size.GetWidth());
        }
        return wxSize(width, MenuItemHeight(dotsPerInch.GetWidth(), dotsPerInch.GetHeight()));
    }
    return std::nullopt;
}

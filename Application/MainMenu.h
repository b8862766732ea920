#pragma once

#include "Explorer/Controls/MenuItems.h"
#include "Utilities/Texts.h"

#include <wx/gdicmn.h>

#include <optional>

class wxMenu;
class wxMenuBar;

/// The menus of the main window, made out of the command table.
class MainMenu
{
public:
    /// Fills a menu bar, which isn't owned and must live as long.
    explicit MainMenu(wxMenuBar& menuBar);

    /// The bar with its menus as items.
    const CQOXRMMenuItems& Items() const { return m_bar; }

    /// The toolkit's menu of that name; null if the program has none. Owned by the bar.
    wxMenu* MenuOf(TextId menu) const;

    /// How large an item of a menu, or of a menu within it, is on a screen of so many dots per
    /// inch: as wide as the widest one beside it. Nothing for an item of another menu.
    std::optional<wxSize> SizeOf(const CQOXRMMenuItems& item, const wxSize& dotsPerInch) const;

private:
    CQOXRMMenuItems m_bar;
};

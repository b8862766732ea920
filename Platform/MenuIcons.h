#pragma once

/// The icons in the toolkit's menus.
namespace Platform
{

/// Has menus show the icons of their items, in this program alone, where the desktop leaves
/// them out. Called when the toolkit is there. True if they are shown from then on.
bool ShowIconsInMenus();

} // namespace Platform

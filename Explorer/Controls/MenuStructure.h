#pragma once

#include <cstdint>
#include <string>
#include <vector>

// What the menus are made of, without a window: captions, keys, and what is drawn when.

/// What an item is, beside its caption. The values are those of menu resources, but for the last.
namespace MenuFlag
{
inline constexpr std::uint32_t Grayed = 0x0001;
inline constexpr std::uint32_t Disabled = 0x0002;
inline constexpr std::uint32_t Checked = 0x0008;
inline constexpr std::uint32_t Popup = 0x0010;
inline constexpr std::uint32_t OwnerDrawn = 0x0100;
inline constexpr std::uint32_t Separator = 0x0800;
inline constexpr std::uint32_t Checkable = 0x10000; ///< It can get a check mark.
} // namespace MenuFlag

/// A caption, split at its tab.
struct MenuCaption
{
    static constexpr std::int32_t NoKey = -1;

    std::wstring text;            ///< With `&` ahead of the letter that chooses the item.
    std::wstring keyText;         ///< What stands behind the first tab; empty for none.
    std::int32_t keyCode = NoKey; ///< The last character of the key less 64: the control code of a letter.
};

MenuCaption SplitMenuCaption(const std::wstring& caption);

/// What a character does that is typed in an open menu: the index of the first item that it
/// chooses in the low 16 bits and `MenuCharExecutes` in the high ones, or 0.
///
/// A character chooses by the letter behind `&`, whatever its case, or by being the control
/// code of an item's key. 0 too if the flags aren't those of a popup menu.
std::uint32_t FindMenuChar(wchar_t character, std::uint32_t flags, const std::vector<const MenuCaption*>& items);

inline constexpr std::uint32_t MenuCharExecutes = 2;

/// The width of an item whose text and key, as one line, are `textWidth` pixels wide: with
/// room for the icons and, if there is a key, for its column.
int MenuItemWidth(int textWidth, bool hasKey);

/// The height of an item on a screen of so many dots per inch.
int MenuItemHeight(int horizontalDpi, int verticalDpi);

/// What has changed on the screen, so that an item is drawn.
struct MenuDrawCause
{
    bool whole = false;            ///< All of it.
    bool selectionChanged = false; ///< It was selected, or isn't any longer.
};

/// The looks of an item that are drawn one after the other.
struct MenuLooks
{
    bool normal = false;
    bool selected = false;
    bool deselected = false;

    bool operator==(const MenuLooks&) const = default;
};

MenuLooks LooksToDraw(const MenuDrawCause& cause, bool isSelected);

#include "Explorer/Controls/MenuStructure.h"

#include "Platform/Text.h"

#include <cstddef>

MenuCaption SplitMenuCaption(const std::wstring& caption)
{
    constexpr std::int32_t FirstControlLetter = 64;
    MenuCaption result;
    const std::size_t tab = caption.find(L'\t');
    result.text = caption.substr(0, tab);
    if (tab != std::wstring::npos)
    {
        result.keyText = caption.substr(tab + 1);
    }
    if (!result.keyText.empty())
    {
        result.keyCode = static_cast<std::int32_t>(result.keyText.back()) - FirstControlLetter;
    }
    return result;
}

std::uint32_t FindMenuChar(wchar_t character, std::uint32_t flags, const std::vector<const MenuCaption*>& items)
{
    if ((flags & MenuFlag::Popup) == 0)
    {
        return 0;
    }
    const std::wstring letter = Platform::ToLower(std::wstring{ L'&', character });
    for (std::size_t index = 0; index < items.size(); ++index)
    {
        const MenuCaption& item = *items[index];
        const bool hasKey = !item.keyText.empty() && item.keyCode == static_cast<std::int32_t>(character);
        if (hasKey || Platform::ToLower(item.text).find(letter) != std::wstring::npos)
        {
            return MenuCharExecutes << 16U | static_cast<std::uint32_t>(index & 0xFFFFU);
        }
    }
    return 0;
}

int MenuItemWidth(int textWidth, bool hasKey)
{
    constexpr int StripAlone = 20;
    constexpr int StripAndKey = 50;
    return textWidth + (hasKey ? StripAndKey : StripAlone);
}

int MenuItemHeight(int horizontalDpi, int verticalDpi)
{
    struct Known
    {
        int dpi;
        int height;
    };
    for (const Known known : { Known{ 96, 20 }, Known{ 120, 22 } })
    {
        if (horizontalDpi == known.dpi && verticalDpi == known.dpi)
        {
            return known.height;
        }
    }
    constexpr double DotsPerPixelOfHeight = 4.36;
    return static_cast<int>(horizontalDpi / DotsPerPixelOfHeight);
}

MenuLooks LooksToDraw(const MenuDrawCause& cause, bool isSelected)
{
    return { cause.whole, isSelected && (cause.whole || cause.selectionChanged),
             !isSelected && cause.selectionChanged };
}

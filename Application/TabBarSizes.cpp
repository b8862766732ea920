#include "Application/TabBarSizes.h"

#include <algorithm>
#include <cwctype>

namespace
{

constexpr int LeastWidth = 100;
constexpr int WidthMargin = 20;
constexpr int ShownLess = 50;
constexpr int LaidOutMore = 20;
constexpr int ButtonHeight = 24;
constexpr int StripLess = 22;
constexpr int TabsTop = 2;
constexpr int TabsMore = 2;

// The access key of languages without letters of their own for it: a blank may stand before it.
std::size_t LengthOfKeyInBrackets(const std::wstring& text, std::size_t at)
{
    constexpr std::size_t Length = 4; // "(&X)"
    return text.compare(at, 2, L"(&") == 0 && at + Length <= text.size() && text[at + Length - 1] == L')' ? Length : 0;
}

} // namespace

std::wstring ButtonLabel(const std::wstring& menuText)
{
    const std::wstring text = menuText.substr(0, menuText.find(L'\t'));
    std::wstring label;
    for (std::size_t at = 0; at < text.size(); ++at)
    {
        if (const std::size_t length = LengthOfKeyInBrackets(text, at))
        {
            at += length - 1;
        }
        else if (text[at] == L'&')
        {
            if (at + 1 < text.size() && text[at + 1] == L'&')
            {
                label += text[++at];
            }
        }
        else
        {
            label += text[at];
        }
    }
    while (!label.empty() && (label.back() == L'.' || label.back() == L'\u2026' || std::iswspace(label.back()) != 0))
    {
        label.pop_back();
    }
    return label;
}

int TabBarButtonWidth(std::span<const int> firstTab, std::span<const int> thirdTab)
{
    int width = LeastWidth;
    for (const std::span<const int> labels : { firstTab, thirdTab })
    {
        for (const int label : labels)
        {
            width = std::max(width, label);
        }
    }
    return width + WidthMargin;
}

BarSize ButtonSizeOfShownTab(int buttonWidth)
{
    return { buttonWidth - ShownLess, ButtonHeight };
}

BarSize ButtonSizeOfLayout(int buttonWidth)
{
    return { buttonWidth + LaidOutMore, ButtonHeight };
}

BarSize WantedStripSize(int buttonWidth, int frameClientHeight)
{
    return { buttonWidth - StripLess, frameClientHeight };
}

BarRect TabControlRect(const BarSize& strip)
{
    return { 0, TabsTop, strip.width + TabsMore, strip.height };
}

#pragma once

#include <span>
#include <string>

/// Sizes of the command strip and of its buttons, and what the buttons say. All are pixels at a
/// scale of 100 %.

struct BarSize
{
    int width = 0;
    int height = 0;
    bool operator==(const BarSize&) const = default;
};

struct BarRect
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const BarRect&) const = default;
};

/// Side of the pictures on tabs and buttons.
inline constexpr int BarImageSize = 16;
inline constexpr int TabPadding = 3;

/// The label of a command's button, from the text of its menu item: without the access key, the
/// shortcut and the dots that announce a dialog.
std::wstring ButtonLabel(const std::wstring& menuText);

/// The width that all sizes of buttons go by, from the widths of labels on the first and on the
/// third tab. Those of the second tab don't count: their commands stand on the others' widths.
int TabBarButtonWidth(std::span<const int> firstTab, std::span<const int> thirdTab);

/// Size of each button when a tab has just been shown.
BarSize ButtonSizeOfShownTab(int buttonWidth);

/// Size of each button from the first change of the strip's size on, and at its start.
BarSize ButtonSizeOfLayout(int buttonWidth);

/// What the strip asks its frame for.
BarSize WantedStripSize(int buttonWidth, int frameClientHeight);

/// Where the tab control lies in a strip of a size.
BarRect TabControlRect(const BarSize& strip);

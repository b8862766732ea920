#pragma once

#include <optional>
#include <string_view>

/// Where a bar of the main window was when it was saved.
struct BarPlace
{
    bool shown = true;
    bool floating = false;
    int side = 0;  ///< 1 to 4: top, right, bottom, left.
    int layer = 0; ///< How far outside, counted from the inside.
    int row = 0;
    int position = 0;
    int floatingX = 0; ///< Outer place and size of its own window, in pixels; -1 if it never had one.
    int floatingY = 0;
    int floatingWidth = 0;
    int floatingHeight = 0;

    friend bool operator==(const BarPlace&, const BarPlace&) = default;
};

/// The place of a bar by its name, out of the text that the docking manager makes of all bars. The
/// manager itself believes what a damaged text says: bars then cover the window, or can't be
/// reached. Nothing if the text doesn't have the bar whole and at one of the sides; numbers that
/// are too large to be meant are cut.
std::optional<BarPlace> SavedBarPlace(std::wstring_view layout, std::wstring_view bar);

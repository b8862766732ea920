#pragma once

#include <cstdint>

/// A colour as 0x00BBGGRR.
using LinkColour = std::uint32_t;

constexpr LinkColour MakeLinkColour(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return static_cast<LinkColour>(red) | static_cast<LinkColour>(green) << 8U | static_cast<LinkColour>(blue) << 16U;
}

/// What a link looks like, by what has happened to it.
struct HyperLinkState
{
    bool mouseIsOver = false;
    bool visited = false;
    bool notifiesParent = false; ///< A click tells the parent instead of opening the target.

    LinkColour normal = MakeLinkColour(0, 0, 255);
    LinkColour hover = MakeLinkColour(255, 0, 0);
    LinkColour visitedColour = MakeLinkColour(5, 34, 143);

    /// A visited link stays so under the mouse too.
    LinkColour Colour() const
    {
        if (visited)
        {
            return visitedColour;
        }
        return mouseIsOver ? hover : normal;
    }
};

/// By this number the parent of a link knows that it was clicked.
inline constexpr int HyperLinkClickedMessage = 1125;

#pragma once

#include <cstdint>

class wxBitmap;

/// Sets each pixel of the old colour to the new one. Colours are 0x00BBGGRR. What is seen
/// through stays so. A bitmap without pixels stays as it is.
void ReplaceColor(wxBitmap& bitmap, std::uint32_t newColour, std::uint32_t oldColour);

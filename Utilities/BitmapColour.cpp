#include "Utilities/BitmapColour.h"

#include "Utilities/UIUtilities.h"

#include <wx/bitmap.h>
#include <wx/image.h>

void ReplaceColor(wxBitmap& bitmap, std::uint32_t newColour, std::uint32_t oldColour)
{
    if (!bitmap.IsOk())
    {
        return;
    }
    constexpr std::size_t BytesOfPixel = 3;
    wxImage image = bitmap.ConvertToImage();
    const std::size_t pixels = static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
    CUIUtilities::ReplaceColor({ image.GetData(), pixels * BytesOfPixel }, newColour, oldColour);
    bitmap = wxBitmap(image, wxBITMAP_SCREEN_DEPTH, bitmap.GetScaleFactor());
}

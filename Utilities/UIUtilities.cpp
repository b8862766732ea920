#include "Utilities/UIUtilities.h"

void CUIUtilities::TrimTrailingZeros(std::wstring& text)
{
    const std::size_t point = text.find(L'.');
    if (point == std::wstring::npos || point == 0)
    {
        return;
    }
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.ends_with(L'.'))
    {
        text.pop_back();
    }
}

#pragma once

#include <wx/gdicmn.h>

class wxTopLevelWindow;

/// Whether enough of the title of a window that takes so much of the screens is to be seen for the
/// mouse to take hold of it.
bool IsTitleOnAScreen(const wxRect& window);

/// Puts a window where it was when it was destroyed last, and has the next start do so. One that
/// was nowhere yet, or whose size is of no use, gets the size given, in units of a scale of 100 %,
/// in the middle of the screen. Whatever is stored, it can be seen and moved, and isn't minimised.
void RestorePlace(wxTopLevelWindow& window, const wxSize& startSize);

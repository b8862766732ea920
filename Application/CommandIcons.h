#pragma once

#include <wx/bmpbndl.h>
#include <wx/colour.h>
#include <wx/iconbndl.h>

#include <string_view>

/// Pictures of the program, drawn for it as vectors: sharp at every size and scale. Their lines
/// take a colour of the user's theme, so they are made again when the theme changes.

/// Picture of a command for menus and bars, 16 by 16 units at the scale of 100 %; empty for a
/// number that isn't one of a command. Without a colour, lines have that of button texts.
wxBitmapBundle CommandIcon(int command, const wxColour& ink = {});

/// A picture of Application/Icons by its name; empty if there is none of that name.
wxBitmapBundle NamedIcon(std::string_view name, const wxColour& ink = {});

/// The program's own picture, which has the same colours everywhere. `size` is what it takes at
/// the scale of 100 %.
wxBitmapBundle ProgramPicture(int size = 16);

/// The same for windows, in the sizes that title bars and task switchers ask for, up to `largest`
/// pixels wide.
wxIconBundle ProgramIcons(int largest = 256);

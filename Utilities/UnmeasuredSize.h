#pragma once

#include <wx/gdicmn.h>

/// The size to make a control with whose place gives it its size. Made without a size, it would
/// draw letters to find one that nobody asks for.
inline const wxSize UnmeasuredSize(1, 1);

#pragma once

#include <wx/string.h>

class wxListCtrl;
class wxWindow;

/// Names a control for users who have the screen read to them, where no label right before it
/// does, or the system takes the control's value for its name.
void NameForScreenReaders(wxWindow& control, const wxString& name);

/// Same for a list, whose rows the system tells nothing of: its name is followed by the row that
/// the user has just gone to.
void NameForScreenReaders(wxListCtrl& list, const wxString& name);

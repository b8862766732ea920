#pragma once

class wxSizer;
class wxWindow;

/// Labels the window's standard buttons (OK, Cancel, Yes, No, Help, Close) in the language
/// in use. By themselves some systems label them in a language of their own.
void LabelStandardButtons(wxWindow& window);

/// Takes out the space that systems leave of their own behind the last of a dialog's standard
/// buttons, with which it would not stand under the end of the fields above.
void DropSpaceBehindButtons(wxSizer& buttons);

#pragma once

class wxSizer;
class wxWindow;

/// Labels the window's standard buttons (OK, Cancel, Yes, No, Help, Close) in the language
/// in use. By themselves some systems label them in a language of their own.
void LabelStandardButtons(wxWindow& window);

/// Takes out the space that systems leave of their own at both ends of a dialog's standard
/// buttons, with which they would not stand under the ends of the fields above.
void DropSpaceAroundButtons(wxSizer& buttons);

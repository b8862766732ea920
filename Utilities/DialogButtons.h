#pragma once

class wxWindow;

/// Labels the window's standard buttons (OK, Cancel, Yes, No, Help, Close) in the language
/// in use. By themselves some systems label them in a language of their own.
void LabelStandardButtons(wxWindow& window);

#pragma once

class wxStaticText;

/// Breaks the text of a label into lines of at most `width` pixels, in every language: what the
/// toolkit has for it breaks at blanks alone, and Chinese and Japanese texts have none.
void WrapLabel(wxStaticText& label, int width);

#pragma once

#include <string>
#include <string_view>

/// The text as far as it matters when a user looks for it: without case and accents, in letters
/// of normal width, and Japanese syllables all in katakana.
std::wstring FoldedText(std::wstring_view text);

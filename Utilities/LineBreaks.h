#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The text in lines of at most `width`, as `widthOf` measures them, with line ends between them.
/// Lines are broken at blanks and, in scripts that are written without, between two characters; marks
/// that close something stay with what is before them, those that open something with what follows.
/// What can't be broken stays wider. Line ends that the text has stay, too.
std::wstring BrokenIntoLines(std::wstring_view text, int width, const std::function<int(const std::wstring&)>& widthOf);

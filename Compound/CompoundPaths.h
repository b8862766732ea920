#pragma once

#include <string_view>
#include <vector>

/// The pieces of a path between its separators, without the empty ones.
std::vector<std::wstring_view> SplitCompoundPath(std::wstring_view path);

#pragma once

#include <string>

/// Helpers for what is shown of values. It has no state.
class CUIUtilities
{
public:
    /// Drops the zeros at the end of a number with decimals, and then a point at its end. A
    /// text without a point or with one at its start stays.
    static void TrimTrailingZeros(std::wstring& text);
};

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Values of rules as text.

/// A number with up to six decimals and at least one; the point is `.`.
std::wstring FormatDouble(double value);

/// The number that the digits and points at the start of a text make, after blanks. A sign
/// or an exponent ends it, so a negative number reads as 0.
double ParseDouble(std::wstring_view text);

/// Code of a comparison, without regard to case; 0 for a text that is none.
std::int32_t GetOperatorCode(std::wstring_view text);

/// The comparison of a code; empty if there is none.
std::wstring GetOperatorText(std::int32_t code);

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// A number as it stands in files: the shortest text that reads back as the same number,
/// save that the noise in the last digits that a unit conversion leaves is dropped.
/// The point is `.` whatever the locale.
void AppendNumberText(std::string& text, double value);

/// Reads such a text. Nothing if it isn't a finite number or something stands behind it.
std::optional<double> ParseNumberText(std::string_view text);

/// Reads a decimal integer of 32 bits. Nothing if it isn't one or something stands behind it.
std::optional<std::int32_t> ParseInteger(std::string_view text);

#pragma once

#include <cstddef>
#include <optional>
#include <string>

/// The path in the data that another start sent: 16-bit units, low byte first, up to the
/// first zero or the end of the data. Nothing if the data is null or holds no whole unit.
/// Reads no further than `size`, whatever the sender claims.
std::optional<std::wstring> ForwardedPath(const void* data, std::size_t size);

#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

/// The path in the data that another start sent: 16-bit units, low byte first, up to the
/// first zero or the end of the data. Nothing if the data is null or holds no whole unit.
/// Reads no further than `size`, whatever the sender claims.
std::optional<std::wstring> ForwardedPath(const void* data, std::size_t size);

/// Takes what another start sent and has the file opened; empty paths open nothing. False,
/// without opening anything, while the editor of a rule is open. Data without a path is taken
/// at any time.
bool TakeForwardedFile(const void* data, std::size_t size, const std::function<void(const std::wstring&)>& open);

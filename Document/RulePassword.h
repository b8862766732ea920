#pragma once

#include <cstddef>
#include <optional>
#include <string>

/// The form in which a password stands in a rule file. It is encoded, not encrypted: whoever
/// has the file can read it.
namespace RulePassword
{

/// 16-bit units that a password may have.
inline constexpr std::size_t MostUnits = 188;

/// False for a password that is too long for a file.
bool Fits(const std::wstring& password);

/// The text of the attribute; nothing if the password doesn't fit. What the system code
/// page lacks is lost.
std::optional<std::wstring> Pack(const std::wstring& password);

/// The password that an attribute's text holds. Any text gives some password.
std::wstring Unpack(const std::wstring& packed);

} // namespace RulePassword

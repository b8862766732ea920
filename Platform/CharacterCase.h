#pragma once

/// What `ToLower` and `EqualsNoCase` need of the system. Used by the sources of this folder only.
namespace Platform
{

/// Lower-case form of a character beyond ASCII, independent of the user's locale.
wchar_t LowerCharacter(wchar_t character);

} // namespace Platform

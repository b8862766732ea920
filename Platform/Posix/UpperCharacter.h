#pragma once

namespace Platform::Posix
{

/// Upper-case form of a character, independent of the user's locale.
wchar_t UpperCharacter(wchar_t character);

} // namespace Platform::Posix

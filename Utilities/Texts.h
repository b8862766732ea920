#pragma once

#include "Lang/TextIds.h"

#include <cstdint>
#include <initializer_list>
#include <string>

namespace Platform
{
class ResourceLibrary;
}

/// Makes a language library the source of all texts. Null, as at the start, leaves the
/// English ones that the program itself holds. Not owned; it must live as long as it is set.
void UseTextLibrary(const Platform::ResourceLibrary* library);

/// The text of a number in the language in use; what its library lacks is in English.
std::wstring LoadText(TextId id);

/// Same for a number that stands in a table. Empty for a number that no text has.
std::wstring LoadText(std::uint32_t number);

/// The text of a number with `%1`, `%2`, ... replaced by the arguments.
std::wstring FormatText(TextId id, std::initializer_list<std::wstring> arguments);

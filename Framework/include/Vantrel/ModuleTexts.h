#pragma once

#include <Vantrel/Export.h>

#include <cstdint>
#include <string>
#include <string_view>

/// Gives the text of a number in the language in use. False if the number has none.
using ModuleTextSource = bool (*)(std::uint32_t number, std::wstring& text);

/// Registers where rule modules get their texts from. The program does so at start, and
/// again whenever another language comes into use; null takes the source away.
VANTREL_API void SetModuleTextSource(ModuleTextSource source);

/// For rule modules: the text of a number in the language in use, or the module's own text
/// where no program has registered a source, or the source has nothing for the number.
VANTREL_API std::wstring ModuleText(std::uint32_t number, std::wstring_view ownText);

/// Changes with every call of `SetModuleTextSource`: a module that keeps texts gets them
/// anew when it differs from what it was.
VANTREL_API std::uint32_t ModuleTextVersion();

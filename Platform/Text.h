#pragma once

#include <string>
#include <string_view>

/// Conversions between wide text, UTF-8, UTF-16 and the system code page.
///
/// Wide text is `std::wstring` everywhere in the program. A `wchar_t` has 16 bits on
/// one system and 32 on the other, so text that goes into a file or to another process
/// as 16-bit units is always converted explicitly.
namespace Platform
{

/// Wide text as UTF-8. Code units that are no valid text become U+FFFD.
std::string WideToUtf8(std::wstring_view text);

/// UTF-8 as wide text. Bytes that are no valid UTF-8 become U+FFFD.
std::wstring Utf8ToWide(std::string_view text);

/// True for bytes that are UTF-8 throughout.
bool IsUtf8(std::string_view text);

/// Wide text as UTF-16 code units, without terminator.
std::u16string WideToUtf16(std::wstring_view text);

/// UTF-16 code units as wide text. A lone surrogate becomes U+FFFD.
std::wstring Utf16ToWide(std::u16string_view text);

/// Wide text in the system code page. Characters that the code page lacks become `?`.
std::string ToCodePage(std::wstring_view text);

/// Text of the system code page as wide text. Bytes without a meaning become U+FFFD.
std::wstring FromCodePage(std::string_view text);

/// Lower-cases character by character, the same way wherever paths are compared.
std::wstring ToLower(std::wstring_view text);

/// True if the two texts are equal without regard to case.
bool EqualsNoCase(std::wstring_view first, std::wstring_view second);

} // namespace Platform

#pragma once

#include <string>

/// What fits into the buffer of a tool tip, in its two forms. Characters are never cut in two.

/// At most 160 16-bit units.
std::u16string ToolTipUnits(const std::wstring& text);

/// At most 80 bytes in the system code page.
std::string ToolTipBytes(const std::wstring& text);

#pragma once

/// Extension of rule files, without the dot.
inline constexpr const wchar_t* RuleFileExtension = L"vrf";

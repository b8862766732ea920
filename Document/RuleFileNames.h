#pragma once

/// Names and fixed texts of rule files.
namespace RuleFileNames
{

inline constexpr const char* Root = "Lumeq";
inline constexpr const char* Rule = "Rule";

inline constexpr const char* Name = "Name";
inline constexpr const char* CreatedBy = "Createdby";
inline constexpr const char* CreatedOn = "CreatedOn";
inline constexpr const char* Unit = "Unit";
inline constexpr const char* AngularUnit = "AngularUnit";
inline constexpr const char* Version = "Version";
inline constexpr const wchar_t* Password = L"Password";
inline constexpr const wchar_t* RulesData = L"RulesData";
inline constexpr const wchar_t* RuleModule = L"RuleModule";

/// The one version of the format; no reader looks at it.
inline constexpr const char* VersionText = "v3.3";

} // namespace RuleFileNames

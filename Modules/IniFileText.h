#pragma once

#include "Modules/IniFile.h"

#include <optional>
#include <string>
#include <string_view>

/// The syntax of the configuration file, apart from files.
namespace IniFileText
{

/// The records of a text. Nothing if a section line has no `]`, or if section names repeated
/// in the records would take more than 64 MB.
std::optional<CIniFile::Records> Parse(std::string_view text);

/// Brings the records of each section together, in the place of the section's first one.
void GroupBySection(CIniFile::Records& records);

/// The text of a file, with the system's line ends.
std::string FileText(const CIniFile::Records& records);

/// The text for people: no blank ahead of live lines, line feeds at their ends.
std::string PlainText(const CIniFile::Records& records);

} // namespace IniFileText

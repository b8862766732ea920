#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The pages that stand in for a help file.
namespace Platform::Posix
{

/// Names of the pages that may be shown for a topic, best first: the topic's own, then the
/// first of the list. The list has a line `<number> <page>` for each topic. Lines of another
/// form don't count, and neither do names that aren't those of a page in the same folder.
std::vector<std::string> PagesOfTopic(std::string_view list, unsigned int topic);

/// The URL of a file by its absolute path.
std::string FileUrl(std::string_view path);

/// The URL of the page that shows a topic of the help file, whose path is absolute. Nothing
/// if no pages lie beside the file.
std::optional<std::string> HelpPageUrl(const std::string& helpFile, unsigned int topic);

} // namespace Platform::Posix

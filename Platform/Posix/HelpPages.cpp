#include "Platform/Posix/HelpPages.h"

#include "Platform/Files.h"
#include "Platform/Posix/PathBytes.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>

namespace Platform::Posix
{
namespace
{

// Far more than any list of topics needs.
constexpr std::uintmax_t LargestList = 256UL * 1024;

bool IsAlphanumeric(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9');
}

/// A list must not lead out of its folder, nor to anything but a page.
bool IsPageName(std::string_view name)
{
    constexpr std::string_view Suffix = ".html";
    return name.size() > Suffix.size() && name.ends_with(Suffix) && name.front() != '.' &&
           std::all_of(name.begin(), name.end(),
                       [](char character) {
                           return IsAlphanumeric(character) || character == '-' || character == '_' || character == '.';
                       });
}

struct Topic
{
    unsigned int number;
    std::string_view page;
};

std::optional<Topic> ReadTopic(std::string_view line)
{
    if (line.ends_with('\r'))
    {
        line.remove_suffix(1);
    }
    Topic topic{};
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), topic.number);
    const auto digits = static_cast<std::size_t>(end - line.data());
    if (error != std::errc() || digits == line.size() || line[digits] != ' ')
    {
        return std::nullopt;
    }
    topic.page = line.substr(digits + 1);
    return IsPageName(topic.page) ? std::optional(topic) : std::nullopt;
}

bool IsFile(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

std::optional<FileBytes> ReadList(const std::string& path)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error || size > LargestList ? std::nullopt : ReadWholeFile(PathText(path));
}

} // namespace

std::vector<std::string> PagesOfTopic(std::string_view list, unsigned int topic)
{
    std::string_view own;
    std::string_view first;
    while (!list.empty() && own.empty())
    {
        const std::size_t end = std::min(list.find('\n'), list.size());
        if (const std::optional<Topic> read = ReadTopic(list.substr(0, end)))
        {
            first = first.empty() ? read->page : first;
            own = read->number == topic ? read->page : own;
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    std::vector<std::string> pages;
    for (const std::string_view page : { own, first })
    {
        if (!page.empty())
        {
            pages.emplace_back(page);
        }
    }
    return pages;
}

std::string FileUrl(std::string_view path)
{
    constexpr std::string_view Plain = "/-._~";
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string url = "file://";
    for (const char character : path)
    {
        if (IsAlphanumeric(character) || Plain.find(character) != std::string_view::npos)
        {
            url += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        url += '%';
        url += Digits[byte >> 4];
        url += Digits[byte & 0xF];
    }
    return url;
}

std::optional<std::string> HelpPageUrl(const std::string& helpFile, unsigned int topic)
{
    const std::string folder = helpFile.substr(0, helpFile.rfind('/') + 1) + "help/";
    const std::optional<FileBytes> list = ReadList(folder + "topics.txt");
    if (!list)
    {
        return std::nullopt;
    }
    for (const std::string& page : PagesOfTopic(list->View(), topic))
    {
        if (IsFile(folder + page))
        {
            return FileUrl(folder + page);
        }
    }
    return std::nullopt;
}

} // namespace Platform::Posix

#include "Utilities/QOXUIUtils.h"

#include "Platform/Text.h"

#include <Vantrel/VantrelLog.h>

#include <algorithm>
#include <string_view>

namespace
{

// The tag that tools which read logs look for; it is the same for every line.
constexpr const char* SourceTag = "Utilities\\QOXUIUtils";
constexpr int SourceLine = 290;

/// Replaces every placeholder; what the replacement holds is not read for more.
std::wstring ReplaceAll(const std::wstring& format, std::wstring_view placeholder, std::wstring_view replacement)
{
    std::wstring text;
    std::size_t start = 0;
    for (std::size_t found = format.find(placeholder); found != std::wstring::npos;
         found = format.find(placeholder, start))
    {
        text.append(format, start, found - start).append(replacement);
        start = found + placeholder.size();
    }
    return text.append(format, start);
}

} // namespace

void LogMessage(const std::wstring& format, const std::wstring& argument)
{
    const std::size_t placeholder = format.find(L"%s");
    if (placeholder == std::wstring::npos)
    {
        CVantrelLog::PrintMessage(format, SourceTag, SourceLine);
        return;
    }
    std::wstring text;
    text.reserve(format.size() + argument.size());
    text.append(format, 0, placeholder).append(argument).append(format, placeholder + 2);
    CVantrelLog::PrintMessage(text, SourceTag, SourceLine);
}

void LogWithText(const std::wstring& format, const std::wstring& text)
{
    CVantrelLog::PrintMessage(ReplaceAll(format, L"%s", text), SourceTag, SourceLine);
}

void LogWithNumber(const std::wstring& format, std::int32_t number)
{
    CVantrelLog::PrintMessage(ReplaceAll(format, L"%d", std::to_wstring(number)), SourceTag, SourceLine);
}

std::string ToNarrow(const std::wstring& text)
{
    return Platform::ToCodePage(text);
}

std::unique_ptr<char[]> ToMultiByte(const std::wstring& text)
{
    if (text.empty())
    {
        return nullptr;
    }
    const std::string bytes = ToNarrow(text);
    auto buffer = std::make_unique<char[]>(bytes.size() + 1);
    std::copy(bytes.begin(), bytes.end(), buffer.get());
    return buffer;
}

#include "Utilities/QOXUIUtils.h"

#include "Platform/Text.h"

#include <Vantrel/VantrelLog.h>

namespace
{

// The tag that tools which read logs look for; it is the same for every line.
constexpr const char* SourceTag = "Utilities\\QOXUIUtils";
constexpr int SourceLine = 290;

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

std::string ToNarrow(const std::wstring& text)
{
    return Platform::ToCodePage(text);
}

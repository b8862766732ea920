#include <Vantrel/ModuleTexts.h>

namespace
{

ModuleTextSource textSource = nullptr;
std::uint32_t textVersion = 0;

} // namespace

void SetModuleTextSource(ModuleTextSource source)
{
    textSource = source;
    ++textVersion;
}

std::wstring ModuleText(std::uint32_t number, std::wstring_view ownText)
{
    std::wstring text;
    if (textSource != nullptr && textSource(number, text) && !text.empty())
    {
        return text;
    }
    return std::wstring(ownText);
}

std::uint32_t ModuleTextVersion()
{
    return textVersion;
}

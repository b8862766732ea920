#include "Modules/ConfigFileValue.h"

#include "Modules/IniFileText.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"

bool CanStandInConfigFile(const std::wstring& path)
{
    const std::string narrow = ToNarrow(path);
    const CIniFile::Records written = { { {}, ' ', "s", {}, {} }, { {}, ' ', "s", "k", narrow } };
    return Platform::FromCodePage(narrow) == path && IniFileText::Parse(IniFileText::FileText(written)) == written;
}

bool CanBeConfiguredModule(const std::wstring& path)
{
    return path.find(L'%') == std::wstring::npos && CanStandInConfigFile(path);
}

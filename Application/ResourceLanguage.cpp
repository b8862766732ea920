#include "Application/ResourceLanguage.h"

#include "Platform/Files.h"
#include "Platform/Locale.h"
#include "Platform/Registry.h"
#include "Platform/Text.h"
#include "Utilities/Texts.h"

#include <Vantrel/ModuleTexts.h>

#include <algorithm>
#include <array>
#include <optional>

namespace
{

constexpr const wchar_t* csResDllName = L"VantrelRuleBuilderResu.dll";
constexpr const wchar_t* HelpFileName = L"vantrel.chm";
constexpr const wchar_t* EnglishName = L"english";
constexpr std::uint32_t EnglishId = 1033;

// Longer paths are cut, as they have always been.
constexpr std::size_t LongestProgramPath = 999;

constexpr std::size_t LongestIsoName = 9;

constexpr std::uint32_t OptionMissing = 0xFFFFFFFF;
constexpr std::uint32_t OptionEnglish = 0;
constexpr std::uint32_t OptionFollowHostAndUser = 1;

struct LanguageName
{
    std::uint32_t id;
    const wchar_t* name;
};

constexpr std::array LanguageNames = {
    LanguageName{ 1028, L"chinese" },
    LanguageName{ 1029, L"czech" },
    LanguageName{ 1031, L"german" },
    LanguageName{ EnglishId, EnglishName },
    LanguageName{ 1034, L"spanish" },
    LanguageName{ 1036, L"french" },
    LanguageName{ 1040, L"italian" },
    LanguageName{ 1041, L"japanese" },
    LanguageName{ 1042, L"korean" },
    LanguageName{ 1045, L"polish" },
    LanguageName{ 1049, L"russian" },
    LanguageName{ 1046, L"portuguese-brazilian" },
    LanguageName{ 2052, L"chinese-simplified" },
};

constexpr std::array HostKeys = {
    L"SOFTWARE\\Solidworks\\SolidWorks 2007\\General",
    L"SOFTWARE\\Solidworks\\SolidWorks 2008\\General",
};

std::uint32_t UserNumber(const wchar_t* key, const wchar_t* name)
{
    return Platform::ReadRegistryNumber(Platform::RegistryRoot::CurrentUser, key, name).value_or(OptionMissing);
}

bool IsHostEnglish()
{
    return std::any_of(HostKeys.begin(), HostKeys.end(),
                       [](const wchar_t* key) { return UserNumber(key, L"Use English language") == 1; });
}

/// What stands before the last separator; all of it if there is none.
std::wstring CutAtLastSeparator(const std::wstring& path)
{
    return path.substr(0, path.rfind(Platform::PathSeparator));
}

std::wstring Joined(const std::wstring& folder, const std::wstring& name)
{
    return folder + Platform::PathSeparator + name;
}

/// Where rule modules get their texts from.
bool ModuleTextOfTheProgram(std::uint32_t number, std::wstring& text)
{
    text = LoadText(number);
    return !text.empty();
}

std::wstring LanguageFolderPath(const std::wstring& root, const std::wstring& folder)
{
    return Joined(Joined(root, L"Lang"), folder);
}

} // namespace

std::wstring LanguageNameOf(std::uint32_t identifier)
{
    const auto* const found = std::find_if(LanguageNames.begin(), LanguageNames.end(),
                                           [identifier](const LanguageName& row) { return row.id == identifier; });
    return found != LanguageNames.end() ? found->name : EnglishName;
}

std::uint32_t LanguageIdOf(const std::wstring& name)
{
    const auto* const found =
        std::find_if(LanguageNames.begin(), LanguageNames.end(),
                     [&name](const LanguageName& row) { return Platform::EqualsNoCase(row.name, name); });
    return found != LanguageNames.end() ? found->id : EnglishId;
}

std::wstring GetResourceLanguage()
{
    std::uint32_t option = UserNumber(L"SOFTWARE\\Orvane\\YBK_PRODUCT\\Vantrel\\Add-in", L"OptionsLanguage");
    if (option == OptionMissing)
    {
        option = OptionFollowHostAndUser;
    }
    if (option == OptionEnglish)
    {
        return EnglishName;
    }
    if (option != OptionFollowHostAndUser)
    {
        return LanguageNameOf(option);
    }
    return IsHostEnglish() ? EnglishName : LanguageNameOf(Platform::UserLanguageId());
}

std::wstring GetLanguageFolder(const std::wstring& strLanguage)
{
    if (strLanguage == L"chinese-simplified" || strLanguage == L"chinese")
    {
        return Platform::SystemLanguageName().substr(0, LongestIsoName) + L"_" +
               Platform::SystemCountryName().substr(0, LongestIsoName);
    }
    if (strLanguage == L"japanese" || strLanguage == L"korean" || strLanguage == L"french")
    {
        return strLanguage;
    }
    return EnglishName;
}

void InitResourceLibrary(LanguageResources& resources, const std::wstring& programPath)
{
    if (resources.strLanguage.empty())
    {
        resources.strLanguage = GetResourceLanguage();
    }
    resources.strLanguageFolder = GetLanguageFolder(resources.strLanguage);
    resources.strExeFolder = CutAtLastSeparator(programPath.substr(0, LongestProgramPath));
    const std::wstring root = CutAtLastSeparator(resources.strExeFolder);

    const auto useFolder = [&resources, &root]
    {
        resources.strLanguageFolderPath = LanguageFolderPath(root, resources.strLanguageFolder);
        resources.strHelpFilePath = Joined(resources.strLanguageFolderPath, HelpFileName);
        resources.strResDllPath = Joined(resources.strLanguageFolderPath, csResDllName);
        return resources.library.Load(resources.strResDllPath);
    };
    // Loading lets go of the library that is in use.
    UseTextLibrary(nullptr);
    if (!useFolder())
    {
        resources.strLanguageFolder = EnglishName;
        useFolder();
    }
    UseTextLibrary(resources.library.IsLoaded() ? &resources.library : nullptr);
    SetModuleTextSource(&ModuleTextOfTheProgram);

    // The times in rule files go by what this holds from here on.
    resources.strLanguage.clear();
}

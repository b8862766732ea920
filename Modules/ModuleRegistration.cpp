#include "Modules/ModuleRegistration.h"

#include "Modules/ConfigFileValue.h"
#include "Modules/IniFile.h"
#include "Modules/RuleModule.h"
#include "Platform/Files.h"
#include "Platform/LibraryTrial.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"
#include "Utilities/UserPrompt.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

constexpr std::size_t SummaryWidth = 40;

/// Loads a library that may be anybody's, unless what it does as it is loaded is harmful.
Platform::LibraryHandle LoadModule(const std::wstring& path)
{
    if (!Platform::LibraryFileExists(path))
    {
        return nullptr;
    }
    // One that is loaded already doesn't run its code again.
    const bool canLoad = Platform::FindLoadedLibrary(path) != nullptr || Platform::LoadsWithoutHarm(path);
    return canLoad ? Platform::OpenLibraryFile(path) : nullptr;
}

} // namespace

ModuleRegistration::ModuleRegistration(const ModuleKind& kind, const ModuleSet::Handles& loaded,
                                       ModuleSet::Paths& paths, Places places, IUserPrompt& prompt)
    : m_kind(kind), m_loaded(loaded), m_paths(paths), m_places(std::move(places)), m_prompt(prompt), m_modules(loaded)
{
}

ModuleRegistration::~ModuleRegistration()
{
    ModuleSet::FreeModules(m_added);
    LogMessage(L"Rule Register Dialog Uninitialized");
}

std::optional<std::wstring> ModuleRegistration::NameOf(Platform::LibraryHandle module)
{
    std::wstring name = L"Module Name";
    return RuleModule(module).GetModuleName(name) ? std::optional(name) : std::nullopt;
}

std::wstring ModuleRegistration::PathOf(Platform::LibraryHandle module)
{
    return Platform::LibraryPath(module);
}

std::wstring ModuleRegistration::SummaryOf(Platform::LibraryHandle module)
{
    std::wstring summary = L"Module Summary";
    RuleModule(module).GetModuleSummary(summary);
    return WrapModuleSummary(std::move(summary), SummaryWidth);
}

std::vector<std::wstring> ModuleRegistration::DefaultNames()
{
    std::vector<std::wstring> names;
    for (const wchar_t* const file : m_kind.defaultFiles)
    {
        if (auto name = NameOf(LoadModule(m_places.programFolder + Platform::PathSeparator + file)))
        {
            names.push_back(std::move(*name));
        }
    }
    return names;
}

Platform::LibraryHandle ModuleRegistration::Add(const std::wstring& typedPath,
                                                const std::optional<std::wstring>& defaultName)
{
    if (!typedPath.empty())
    {
        return AddModule(Platform::ToLower(typedPath));
    }
    const std::optional<std::wstring> path = defaultName ? FindDefault(*defaultName) : std::nullopt;
    return path ? AddModule(Platform::ToLower(*path)) : nullptr;
}

std::optional<std::wstring> ModuleRegistration::FindDefault(const std::wstring& name) const
{
    for (const wchar_t* const file : m_kind.defaultFiles)
    {
        const std::wstring path = m_places.programFolder + Platform::PathSeparator + file;
        const Platform::LibraryHandle module = LoadModule(path);
        if (module == nullptr)
        {
            continue;
        }
        const std::optional<std::wstring> itsName = NameOf(module);
        Platform::ReleaseLibrary(module);
        if (!itsName)
        {
            return std::nullopt;
        }
        if (Platform::EqualsNoCase(*itsName, name))
        {
            return path;
        }
    }
    return std::wstring();
}

Platform::LibraryHandle ModuleRegistration::AddModule(const std::wstring& typedPath)
{
    // People choose a file by the name that the system gives it, and are told of it by that.
    const std::wstring path = Platform::ConfiguredLibraryName(typedPath);
    if (path.find(L".dll") == std::wstring::npos || !Platform::LibraryFileExists(path))
    {
        return Refuse(TextId::ModuleFileInvalid, typedPath);
    }
    const auto refuseConfigured = [this, &typedPath]
    {
        Refuse(TextId::ModuleConfiguredAlready, typedPath);
        LogMessage(L"Tried to configure the module %s, which was already configured.", typedPath);
        return nullptr;
    };
    if (IsConfigured(path))
    {
        return refuseConfigured();
    }
    // A bare name is looked for elsewhere when it is loaded. What was found is meant.
    const std::wstring fullPath = Platform::AbsolutePath(path);
    if (!CanBeConfiguredModule(fullPath))
    {
        return Refuse(TextId::PathNotStorable, typedPath);
    }
    const Platform::LibraryHandle module = LoadModule(fullPath);
    if (!m_kind.isValid(module))
    {
        Platform::ReleaseLibrary(module);
        Refuse(TextId::ModuleInvalid, typedPath);
        LogMessage(L"Tried to configure invalid module %s", typedPath);
        return nullptr;
    }
    if (std::find(m_modules.begin(), m_modules.end(), module) != m_modules.end())
    {
        // The same file by another path, through a link for instance.
        Platform::ReleaseLibrary(module);
        return refuseConfigured();
    }
    m_modules.push_back(module);
    m_added.push_back(module);
    LogMessage(L"Configured new module :: %s", typedPath);
    return module;
}

Platform::LibraryHandle ModuleRegistration::Refuse(TextId text, const std::wstring& path)
{
    m_prompt.ShowBox(BoxKind::Error, FormatText(text, { path }), LoadText(TextId::ModuleBoxCaption));
    return nullptr;
}

bool ModuleRegistration::IsConfigured(const std::wstring& path) const
{
    return std::any_of(m_modules.begin(), m_modules.end(),
                       [full = Platform::AbsolutePath(path)](Platform::LibraryHandle module)
                       { return Platform::EqualsNoCase(PathOf(module), full); });
}

void ModuleRegistration::Remove(Platform::LibraryHandle module)
{
    // A library that is configured twice stands here twice, and goes once.
    const auto found = std::find(m_modules.rbegin(), m_modules.rend(), module);
    if (found != m_modules.rend())
    {
        m_modules.erase(std::next(found).base());
    }
}

void ModuleRegistration::Discard()
{
    // Those that were taken out again count too. One of the application's that was taken out
    // and added again has been loaded once more; the application's own load stays.
    ModuleSet::FreeModules(m_added);
    m_modules = m_loaded;
}

bool ModuleRegistration::Save()
{
    const bool saved = SaveSection();
    m_paths.clear();
    for (const Platform::LibraryHandle module : m_modules)
    {
        m_paths.push_back(Platform::ToLower(PathOf(module)));
    }
    m_added.clear(); // the program goes on with them
    if (!saved)
    {
        LogMessage(L"The configured modules could not be written to %s", m_places.configFile);
    }
    return saved;
}

bool ModuleRegistration::SaveSection() const
{
    // A module that was configured through an environment variable may lie where its whole path
    // can't be written down. The file keeps what it has then.
    if (!std::ranges::all_of(m_modules, [](auto module) { return CanBeConfiguredModule(PathOf(module)); }))
    {
        return false;
    }
    const std::string file = ToNarrow(m_places.configFile);
    const CIniFile ini;
    if (!Platform::PathExists(m_places.configFile)) // one that can't be read must not be emptied
    {
        ini.Create(file);
    }
    CIniFile::Records records;
    if (!ini.Load(file, records))
    {
        return false;
    }
    const std::string section = m_kind.section;
    std::erase_if(records, [&section](const CIniFile::Record& record) { return record.Section == section; });
    records.push_back({ {}, ' ', section, {}, {} });
    int number = 0;
    for (const Platform::LibraryHandle module : m_modules)
    {
        records.push_back({ {}, ' ', section, "module" + std::to_string(++number), ToNarrow(PathOf(module)) });
    }
    return ini.Save(file, records);
}

std::wstring WrapModuleSummary(std::wstring text, std::size_t width)
{
    std::wstring lines;
    while (!text.empty())
    {
        std::size_t cut = text.size() - 1;
        if (text.size() > width)
        {
            const std::size_t blank = text.rfind(L' ', width - 1);
            cut = blank == std::wstring::npos ? width - 1 : blank;
        }
        lines += text.substr(0, cut + 1) + L"\r\n";
        text.erase(0, cut + 1);
    }
    return lines;
}

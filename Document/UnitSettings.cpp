#include "Document/UnitSettings.h"

#include "Document/DamagedFile.h"
#include "Platform/Environment.h"
#include "Platform/Files.h"
#include "Platform/Text.h"

#include <Vantrel/QoxXml.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <span>
#include <tuple>

namespace
{

// Names in the file by unit number. They are the same in every language.
constexpr std::array LinearNames = {
    L"millimeters", L"centimeters", L"meters",  L"inches", L"feet",        L"feet & inches",
    L"angstroms",   L"nanometers",  L"microns", L"mils",   L"microinches",
};
constexpr std::array AngularNames = { L"degrees", L"degrees/minutes", L"degrees/minutes/seconds", L"radians" };

constexpr const wchar_t* SettingsElement = L"Settings";
constexpr const wchar_t* UnitsElement = L"Units";
constexpr const wchar_t* LinearElement = L"Linear";
constexpr const wchar_t* AngularElement = L"Angular";

constexpr const wchar_t* CompanyFolder = L"OrvaneLtd";
constexpr const wchar_t* ProductFolder = L"WQZ";
constexpr const wchar_t* FallbackFolder = L"Settings";
constexpr const wchar_t* SettingsFile = L"settings.xml";

using NodePointer = std::unique_ptr<QoxXMLNode>;

std::wstring NameOf(std::span<const wchar_t* const> names, std::int32_t unit)
{
    const bool isKnown = unit >= 0 && static_cast<std::size_t>(unit) < names.size();
    return isKnown ? names[static_cast<std::size_t>(unit)] : names.front();
}

/// The number of a unit by its name. Both kinds of units are looked up for either element:
/// files in the field may hold an angle where a length is meant, and read the same everywhere.
std::int32_t UnitOf(const std::wstring& name)
{
    for (const std::span<const wchar_t* const> names :
         { std::span<const wchar_t* const>(LinearNames), std::span<const wchar_t* const>(AngularNames) })
    {
        const auto found = std::find_if(names.begin(), names.end(),
                                        [&name](const wchar_t* entry) { return Platform::EqualsNoCase(entry, name); });
        if (found != names.end())
        {
            return static_cast<std::int32_t>(found - names.begin());
        }
    }
    return 0;
}

void ReadUnit(const QoxXMLNode& units, const wchar_t* element, std::int32_t& unit)
{
    const NodePointer node(units.SelectSingleNode(element));
    if (node == nullptr)
    {
        return;
    }
    std::wstring name;
    node->GetNodeValueInCString(name); // an element without text has no unit's name
    unit = UnitOf(name);
}

/// Sets the text of a child, which is added if it is missing.
void SetChild(QoxXMLNode& parent, const wchar_t* element, const std::wstring& text, QoxXMLDocument& document)
{
    NodePointer node(parent.SelectSingleNode(element));
    if (node == nullptr)
    {
        node.reset(parent.AppendNode(element, &document));
    }
    node->SetNodeValue(text);
}

/// The root element of the file; a new one if there is no file or it can't be read.
NodePointer LoadOrMakeRoot(QoxXMLDocument& document, const std::wstring& file)
{
    if (Platform::PathExists(file))
    {
        if (NodePointer root(document.LoadFromFile(file)); root != nullptr)
        {
            return root;
        }
        KeepDamagedFile(file);
    }
    NodePointer root(document.CreateNode(SettingsElement));
    document.AppendNode(root.get());
    return root;
}

std::wstring PathIn(const std::wstring& folder, const wchar_t* name)
{
    return folder + Platform::PathSeparator + name;
}

/// The value of a variable. An empty one counts as not set, for a path at the root of the
/// file system is never meant by it.
std::optional<std::wstring> FolderVariable(const wchar_t* name)
{
    std::optional<std::wstring> folder = Platform::EnvironmentVariable(name);
    return folder && !folder->empty() ? folder : std::nullopt;
}

} // namespace

void UnitSettings(std::int32_t& linear, std::int32_t& angular, bool read)
{
    const std::optional<std::wstring> applicationData = FolderVariable(L"appdata");
    if (!applicationData)
    {
        return;
    }
    // Without the folders the file can't be saved, and the units are what they are.
    const std::wstring companyFolder = PathIn(*applicationData, CompanyFolder);
    const std::wstring productFolder = PathIn(companyFolder, ProductFolder);
    std::ignore = Platform::MakeFolder(companyFolder);
    std::ignore = Platform::MakeFolder(productFolder);

    const std::wstring csSettingFilePath = PathIn(productFolder, SettingsFile);
    if (read)
    {
        if (ReadUnits(csSettingFilePath, linear, angular))
        {
            return;
        }
        if (const std::optional<std::wstring> dataFolder = FolderVariable(L"vantrel_data_dir"))
        {
            // Without a fallback either, the user starts with the units as they are.
            std::ignore = ReadUnits(PathIn(PathIn(*dataFolder, FallbackFolder), SettingsFile), linear, angular);
        }
    }
    WriteUnits(csSettingFilePath, linear, angular);
}

bool ReadUnits(const std::wstring& file, std::int32_t& linear, std::int32_t& angular)
{
    QoxXMLDocument document;
    const NodePointer root(document.LoadFromFile(file));
    const NodePointer units(root != nullptr ? root->SelectSingleNode(UnitsElement) : nullptr);
    if (units == nullptr)
    {
        return false;
    }
    ReadUnit(*units, LinearElement, linear);
    ReadUnit(*units, AngularElement, angular);
    return true;
}

void WriteUnits(const std::wstring& file, std::int32_t linear, std::int32_t angular)
{
    QoxXMLDocument document;
    const NodePointer root = LoadOrMakeRoot(document, file);
    NodePointer units(root->SelectSingleNode(UnitsElement));
    if (units == nullptr)
    {
        units.reset(root->AppendNode(UnitsElement, &document));
    }
    SetChild(*units, LinearElement, NameOf(LinearNames, linear), document);
    SetChild(*units, AngularElement, NameOf(AngularNames, angular), document);
    // The choice holds for this document all the same; the next one tries again.
    std::ignore = document.Save(file);
}

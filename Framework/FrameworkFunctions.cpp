#include <Vantrel/FrameworkFunctions.h>

#include "Framework/CurrentDocument.h"
#include "Platform/Environment.h"
#include "Platform/Files.h"
#include "Platform/Help.h"
#include "Platform/Process.h"

#include <Vantrel/DataHelper.h>
#include <Vantrel/FrameworkUtils.h>

#include <algorithm>
#include <exception>

namespace
{

QoxXMLDocument* currentDocument = nullptr; // owned by whoever loads or saves
RuleEditorFunction ruleEditor = nullptr;

std::wstring DataSettingsFolder()
{
    std::wstring base;
    const std::optional<std::wstring> chosen = Platform::EnvironmentVariable(L"vantrel_data_dir");
    if (chosen && !chosen->empty())
    {
        base = *chosen;
        if (base.back() != Platform::PathSeparator)
        {
            base += Platform::PathSeparator;
        }
    }
    else
    {
        base = Platform::UserDataFolder();
    }
    return base + L"Settings" + Platform::PathSeparator;
}

} // namespace

QoxXMLDocument* CurrentDocument()
{
    return currentDocument;
}

void SetCurrentDocument(QoxXMLDocument* document)
{
    currentDocument = document;
}

RuleEditorFunction RegisteredRuleEditor()
{
    return ruleEditor;
}

void SetRuleEditor(RuleEditorFunction editor)
{
    ruleEditor = editor;
}

void OnStartApplication()
{
    // Nothing outlives a run of the program, but modules that were tried out before it
    // started must not leave their document behind.
    currentDocument = nullptr;
}

void ShowQOXHelp(const std::wstring& path, unsigned int helpId, int* result)
{
    bool shown = false;
    try
    {
        shown = Platform::ShowHelpTopic(path, helpId);
    }
    catch (const std::exception&)
    {
        shown = false; // no exception crosses the library's boundary
    }
    if (result != nullptr)
    {
        *result = shown ? 1 : 0;
    }
}

std::size_t GetDataSettingsFolderPath(wchar_t* buffer, std::size_t* size)
{
    std::wstring folder;
    try
    {
        folder = DataSettingsFolder();
        Platform::MakeFolderTree(folder);
    }
    catch (const std::exception&)
    {
        folder.clear(); // no exception crosses the library's boundary
    }
    if (buffer != nullptr && size != nullptr)
    {
        const std::size_t copied = std::min(folder.size(), *size);
        std::copy_n(folder.begin(), copied, buffer);
        if (copied < *size)
        {
            buffer[copied] = L'\0';
        }
    }
    if (size != nullptr)
    {
        *size = folder.size();
    }
    return folder.size();
}

void AreVSTARulesSupported(int* supported)
{
    if (supported != nullptr)
    {
        *supported = 1;
    }
}

void SetXMLDoc(QoxXMLDocument* document)
{
    currentDocument = document;
}

void SetXMLDoc2(QoxXMLDocument* document)
{
    currentDocument = document;
}

void CQOXFrameWrkUtils::GetRuleCategoryStringList(std::vector<std::wstring>& categories)
{
    categories = { L"Assembly", L"Bends", L"Casting",     L"Draft",      L"Features", L"General", L"Holes",
                   L"Milling",  L"Ribs",  L"Sheet metal", L"Tolerances", L"Turning",  L"Walls",   L"Welding" };
}

IDatabaseCollector::~IDatabaseCollector() = default;

qox_db::QOXDataHelper& qox_db::QOXDataHelper::getInstance()
{
    static QOXDataHelper helper;
    return helper;
}

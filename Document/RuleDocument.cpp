#include "Document/RuleDocument.h"

#include "Document/RulePassword.h"
#include "Document/UserRuleFile.h"
#include "Modules/RuleModule.h"
#include "Platform/Files.h"
#include "Platform/Library.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"
#include "Utilities/Texts.h"
#include "Utilities/UserPrompt.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>

namespace
{

/// Details of a file are stamped in the form of no language: none goes into the file, and
/// programs that read them from the document know this form.
constexpr const char* NoLanguage = "";

/// The old file is whole. The write has never decided whether a document counts as saved, and
/// what goes by that state relies on it.
void LogMissingWrite(const std::wstring& path)
{
    LogMessage(L"The rule file %s could not be written", path);
}

/// False if the code page lacks a character of the path: with another in its place it would
/// name another file.
bool NamesSameFile(const std::string& narrowPath, const std::wstring& path)
{
    return Platform::FromCodePage(narrowPath) == path;
}

} // namespace

RuleDocument::RuleDocument(IUserPrompt* prompt, KeptVersions keptVersions)
    : m_prompt(prompt), m_header(prompt), m_unitsOfFile(m_header.newRuleUnits), m_access(prompt),
      m_keptVersions(std::move(keptVersions))
{
}

RuleDocument::~RuleDocument()
{
    // Rules that no view showed: those of the file that matched no module's rule, hidden
    // ones, and user-defined ones of a document that never had a view.
    PointerArray userRules;
    std::swap(userRules, m_userRules);
    for (CQoxRule* const rule : userRules)
    {
        ForgetRule(rule);
        const std::unique_ptr<CQoxRule> owned(rule);
    }
    PointerArray fileRules;
    m_header.GetRules(fileRules);
    for (CQoxRule* rule : fileRules)
    {
        DeleteRuleFromDocument(rule);
    }
}

RuleDocument::OpenFailure RuleDocument::Open(const std::wstring& path)
{
    LogMessage(L"Command received to open Rule file %s", path);
    if (!m_access.TakeForOpening(path, m_strOpenPath))
    {
        return OpenFailure::Told;
    }
    const std::string narrowPath = ToNarrow(path);
    if (!NamesSameFile(narrowPath, path) || !m_header.LoadRuleFile(narrowPath))
    {
        return OpenFailure::NotRead;
    }
    m_bUnitSet = true;
    m_unitsOfFile = m_header.newRuleUnits;
    m_isFileBehind = m_header.HasWrongDigest();
    m_strOpenPath = path;
    LoadUserRules();
    LogMessage(L"Rule file has been opened successfully");
    return OpenFailure::None;
}

RuleDocument::SaveFailure RuleDocument::Save(const std::wstring& path)
{
    LogMessage(L"Save has been called");
    if (!m_access.ReleaseForSaving(path, m_strOpenPath))
    {
        return SaveFailure::Told;
    }
    const SaveFailure failure = Write(path);
    if (failure != SaveFailure::Told)
    {
        // After a failure the document is still that of the file that it was opened from.
        m_access.TakeAfterSaving(failure == SaveFailure::None ? path : m_strOpenPath);
    }
    if (failure == SaveFailure::None)
    {
        m_unitsOfFile = m_header.newRuleUnits;
        m_strOpenPath = path;
        LogMessage(L"The document has been saved");
    }
    return failure;
}

RuleDocument::SaveFailure RuleDocument::Write(const std::wstring& path)
{
    const std::string narrowPath = ToNarrow(path);
    if (!NamesSameFile(narrowPath, path) || !Platform::CanWriteFile(path))
    {
        return SaveFailure::NotWritable;
    }
    if (!m_bPasswordChecked && !AskPassword())
    {
        return SaveFailure::Told;
    }
    LogMessage(L"Updating file details");
    m_header.UpdateFileDetails(narrowPath, NoLanguage);
    if (m_bPasswordChecked)
    {
        m_header.SetPassword(m_strPassword);
    }
    // A record of its own, so that what goes into the file is the rule list in its order,
    // with empty file details.
    CQOXRMLumeq record;
    for (CQoxRule* const rule : m_ruleList.Rules())
    {
        std::int32_t index = 0;
        record.AddRuleInFile(rule, index);
        record.newRuleUnits = m_header.newRuleUnits;
        record.oldRuleUnits = m_header.oldRuleUnits;
    }
    if (m_bPasswordChecked)
    {
        record.SetPassword(m_strPassword);
    }
    m_isFileBehind = true;
    if (!m_access.IsFreeToWrite(path))
    {
        LogMissingWrite(path);
        return SaveFailure::None;
    }
    // Keeping comes when the new file is on the disk: it never takes the room that the save
    // needs, and a failure to keep, which the log tells of, doesn't hinder the save.
    if (!record.WriteRuleFile(narrowPath, [&] { std::ignore = m_keptVersions.Keep(path); }))
    {
        return SaveFailure::NotWritten;
    }
    m_isFileBehind = record.WriteFailure() != Platform::FileCause::None;
    if (m_isFileBehind)
    {
        LogMissingWrite(path);
    }
    return SaveFailure::None;
}

void RuleDocument::LoadUserRules()
{
    const std::wstring path = UserDefinedRuleFilePath();
    if (path.empty())
    {
        return;
    }
    if (!Platform::PathExists(path))
    {
        CQOXRMLumeq().WriteUserFile(path);
    }
    CQOXRMLumeq record;
    PointerArray rules;
    if (record.LoadRuleList(path))
    {
        record.GetRules(rules);
    }
    for (CQoxRule* rule : rules)
    {
        if (rule->IsUserDefined())
        {
            m_userRules.Add(rule);
        }
        else
        {
            DeleteRuleFromDocument(rule); // a module made it, so the document may not keep it
        }
    }
}

void RuleDocument::AddUserRule(CQoxRule* rule)
{
    auto copy = std::make_unique<ConcreteQOXRule>();
    *copy = rule;
    m_userRules.Add(copy.release());
}

void RuleDocument::RenameUserRule(const std::wstring& oldName, const std::wstring& newName)
{
    const auto found = std::find_if(m_userRules.begin(), m_userRules.end(),
                                    [&oldName](const CQoxRule* rule) {
                                        return rule != nullptr && Platform::EqualsNoCase(rule->m_strRuleName, oldName);
                                    });
    if (found != m_userRules.end())
    {
        (*found)->m_strRuleName = newName;
    }
}

void RuleDocument::DeleteRuleFromDocument(CQoxRule*& rule)
{
    if (rule == nullptr)
    {
        return;
    }
    // Asked first: a file may give a user-defined rule the path of a module, which doesn't
    // make the rule the module's. Its mark may be in any case.
    if (rule->IsUserDefined())
    {
        m_userRules.Remove(rule);
        ForgetRule(rule);
        delete rule; // the document owns its user-defined rules
        rule = nullptr;
        return;
    }
    const Platform::LibraryHandle library = Platform::FindLoadedLibrary(rule->m_strModulePath);
    if (library == nullptr)
    {
        return;
    }
    const RuleModule module(library);
    if (module.TakesRulesBack())
    {
        ForgetRule(rule);
        module.DeleteRule(rule);
    }
}

void RuleDocument::ReleaseRulesOf(const std::wstring& modulePath)
{
    PointerArray rules;
    m_header.GetRules(rules);
    for (CQoxRule* rule : rules)
    {
        if (!rule->IsUserDefined() && rule->m_strModulePath == modulePath)
        {
            DeleteRuleFromDocument(rule);
        }
    }
}

void RuleDocument::ReleaseRules(const std::vector<CQoxRule*>& rules)
{
    for (CQoxRule* rule : rules)
    {
        if (m_userRules.Remove(rule))
        {
            ForgetRule(rule);
            delete rule; // the document owns its user-defined rules
        }
        else
        {
            DeleteRuleFromDocument(rule);
        }
    }
}

bool RuleDocument::SetDocPassword(const std::wstring& password)
{
    if (!RulePassword::Fits(password))
    {
        ShowBox(FormatText(TextId::PasswordTooLong, { std::to_wstring(RulePassword::MostUnits) }));
        return false;
    }
    m_strPassword = password;
    m_bPasswordChecked = true;
    return true;
}

bool RuleDocument::AskPassword()
{
    if (!m_header.IsPasswordProtected())
    {
        return true;
    }
    m_bPasswordChecked = false;
    const std::optional<std::wstring> password =
        m_prompt != nullptr ? m_prompt->AskPassword(PasswordPurpose::Save) : std::nullopt;
    if (!password)
    {
        return false;
    }
    std::wstring expected;
    m_header.GetPassword(expected);
    if (*password != expected)
    {
        ShowBox(LoadText(TextId::WrongPassword));
        return false;
    }
    m_strPassword = *password;
    m_bPasswordChecked = true;
    return true;
}

void RuleDocument::ChangeUnits(const structRulesUnit& units)
{
    m_header.oldRuleUnits = m_header.newRuleUnits;
    m_header.newRuleUnits = units;
}

void RuleDocument::ShowBox(const std::wstring& text) const
{
    if (m_prompt != nullptr)
    {
        m_prompt->ShowBox(BoxKind::Warning, text, LoadText(TextId::ApplicationTitle));
    }
}

void RuleDocument::ForgetRule(const CQoxRule* rule)
{
    m_ruleList.Remove(rule);
    m_header.ForgetRule(rule);
}

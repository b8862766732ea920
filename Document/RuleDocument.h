#pragma once

#include "Document/KeptVersions.h"
#include "Document/Lumeq.h"
#include "Document/RuleFileAccess.h"
#include "Document/RuleList.h"

#include <Vantrel/PointerArray.h>

#include <string>
#include <vector>

class IUserPrompt;

/// One open rule file without its windows: the header record, the rules that are selected
/// in it, and the user-defined rules known on this machine.
class RuleDocument
{
public:
    /// `prompt` is not owned and may be null. `keptVersions` keeps what saves replace.
    explicit RuleDocument(IUserPrompt* prompt = nullptr, KeptVersions keptVersions = KeptVersions());

    /// Gives the rules that it still has back to their modules.
    ~RuleDocument();
    RuleDocument(const RuleDocument&) = delete;
    RuleDocument& operator=(const RuleDocument&) = delete;

    /// Why a file wasn't opened.
    enum class OpenFailure
    {
        None,
        Told,    ///< It isn't to be had, which the user knows, or the user didn't want it.
        NotRead, ///< It can't be read, or isn't XML.
    };

    /// Takes a rule file, reads it into the header record and, if that worked, reads the
    /// user-defined rules.
    OpenFailure Open(const std::wstring& path);

    /// Why a document wasn't saved.
    enum class SaveFailure
    {
        None,
        NotWritable, ///< The file or its folder refuses writing.
        Told,        ///< It isn't to be had or its password wasn't given, which the user knows.
        NotWritten,  ///< There is no framework library to write with.
    };

    /// Writes the rules of the rule list, once the user has given the password of a
    /// protected document. The version that is replaced is kept. The file is let go of for
    /// the time of the write, and stays so if the password is refused. After any failure it
    /// is what it was.
    SaveFailure Save(const std::wstring& path);

    /// Reads `UserDefinedFile.xml`, which is made if it doesn't exist, and appends its rules
    /// to the user-defined rules. A file that can't be read gives none.
    void LoadUserRules();

    /// Takes a copy of a user-defined rule into the user-defined rules.
    void AddUserRule(CQoxRule* rule);

    /// Gives the first user-defined rule with the old name, in any case, the new one.
    void RenameUserRule(const std::wstring& oldName, const std::wstring& newName);

    /// Gives a rule up: a module's goes back to its module, a user-defined one is taken out
    /// of this document and deleted, and the pointer is null then. A rule whose module
    /// isn't loaded stays as it is, and so does the pointer.
    void DeleteRuleFromDocument(CQoxRule*& rule);

    /// Gives back what of the file's rules is left of a module that is about to be unloaded,
    /// after the views have given theirs: nothing could delete them any more.
    void ReleaseRulesOf(const std::wstring& modulePath);

    /// Gives up the rules of the rows of a view that closes.
    void ReleaseRules(const std::vector<CQoxRule*>& rules);

    bool IsPasswordProtected() const { return m_header.IsPasswordProtected(); }

    /// True if the file carries a password or will with the next save. It can't get another.
    bool HasPassword() const { return IsPasswordProtected() || m_bPasswordChecked; }

    /// Gives the file a password with the next save. False, after telling the user, if it
    /// is too long for a file.
    bool SetDocPassword(const std::wstring& password);

    /// Has the user give the password of a protected document, once in its life; true
    /// without asking for any other. False, after telling the user, for a wrong one.
    bool AskPassword();

    /// Takes the units of the rules' values, and keeps those before for converting.
    void ChangeUnits(const structRulesUnit& units);

    /// True if the units aren't those of the file any more.
    bool HaveUnitsChanged() const { return m_header.newRuleUnits != m_unitsOfFile; }

    /// True if a save would change the file though nothing was changed since the last one:
    /// that one could not be written, or the digest of the file isn't that of its rules.
    bool IsFileBehind() const { return m_isFileBehind; }

    CQOXRMLumeq& Header() { return m_header; }
    const CQOXRMLumeq& Header() const { return m_header; }
    RuleList& Rules() { return m_ruleList; }
    const RuleList& Rules() const { return m_ruleList; }
    PointerArray& UserRules() { return m_userRules; }
    const std::wstring& OpenPath() const { return m_strOpenPath; }
    bool IsReadOnly() const { return m_access.IsReadOnly(); }
    void SetReadOnly(bool readOnly) { m_access.SetReadOnly(readOnly); }
    bool IsUnitSet() const { return m_bUnitSet; }

private:
    SaveFailure Write(const std::wstring& path);
    void ForgetRule(const CQoxRule* rule);
    void ShowBox(const std::wstring& text) const;

    IUserPrompt* m_prompt; // owned by the program
    CQOXRMLumeq m_header;
    structRulesUnit m_unitsOfFile; ///< Those to start with if there is no file yet.
    bool m_bUnitSet = false;
    bool m_isFileBehind = false;
    RuleList m_ruleList;
    PointerArray m_userRules; // owned
    RuleFileAccess m_access;
    KeptVersions m_keptVersions;
    std::wstring m_strOpenPath;
    bool m_bPasswordChecked = false; ///< The password has been settled in this run.
    std::wstring m_strPassword;
};

#pragma once

#include "Document/LocalClock.h"
#include "Document/RuleTable.h"
#include "Document/TreeRootRule.h"
#include "Platform/Files.h"

#include <Vantrel/PointerArray.h>
#include <Vantrel/RuleUnits.h>

#include <cstdint>
#include <memory>
#include <string>

class ConcreteQOXRule;
class IUserPrompt;
class QoxXMLDocument;
class QoxXMLListWriter;
class QoxXMLNode;
class RuleElementReader;
class RulesDigest;

/// Header record of a rule file and container of its rules; reads and writes rule files.
///
/// The rules are not owned: a document, its modules and temporary records share them.
class CQOXRMLumeq
{
public:
    /// `prompt` shows what a user must know while a file is read; null shows nothing. Not
    /// owned. `clock` is what saves are stamped by.
    explicit CQOXRMLumeq(IUserPrompt* prompt = nullptr, LocalClock clock = CurrentLocalTime);
    virtual ~CQOXRMLumeq();
    CQOXRMLumeq(const CQOXRMLumeq&) = delete;
    CQOXRMLumeq& operator=(const CQOXRMLumeq&) = delete;

    // --- the rules ---

    /// Adds a rule as the newest; it and `index` take the new count as its index.
    void AddRule(CQoxRule* rule, std::int32_t& index);

    /// `AddRule`, and the rule counts as one of a rule file.
    void AddRuleInFile(CQoxRule* rule, std::int32_t& index);

    /// The tree root, which has the index 0.
    CQoxRule* TreeRoot() const { return m_treeRoot.get(); }

    /// Looks for the rule with the index below `node`: the tree root for all rules of the
    /// record, or one rule for it and its children. `out` stays as it was if there is none
    /// or `node` is null.
    void FindRule(CQoxRule* node, std::int32_t index, CQoxRule*& out) const;

    /// Appends the rules in the order of adding.
    void GetRules(PointerArray& rules) const;

    /// Same, without those marked as deleted.
    void GetLiveRules(PointerArray& rules) const;

    /// Marks the rule with the index as deleted; it is not written any more.
    void MarkDeleted(std::int32_t index);

    /// Takes the rule with the index out and deletes it.
    void DestroyRule(std::int32_t index);

    /// Takes a rule out that its owner is about to delete. False if it isn't here.
    bool ForgetRule(const CQoxRule* rule);

    /// Rules added so far; also the highest index.
    std::int32_t GetCount() const { return m_rules.AddedCount(); }

    // --- rule files ---

    /// Reads a rule file and adds its rules, through the modules. The path is in the system
    /// code page. False if the file can't be read or isn't XML.
    bool LoadRuleFile(const std::string& path);

    /// Same without telling the framework and the modules of the document; for the file of
    /// user-defined rules.
    bool LoadRuleList(const std::wstring& path);

    /// Writes the rules that aren't marked as deleted. False if there is no application, no
    /// path, no framework library or a password that is too long. A file that can't be
    /// written makes no difference here; `WriteFailure` tells of it. The path is in the
    /// system code page. `beforeReplacing` is called before the old file goes.
    bool WriteRuleFile(const std::string& path, const Platform::BeforeReplacing& beforeReplacing = {});

    /// Why the last `WriteRuleFile` could not write the file, which is as it was then.
    Platform::FileCause WriteFailure() const { return m_writeFailure; }

    /// Writes the file of user-defined rules. False for an empty path or a password that is
    /// too long.
    bool WriteUserFile(const std::wstring& path);

    /// Takes the units, the protection and the rules from a root element. Null does nothing.
    void ReadHeader(QoxXMLNode* root);

    /// A new rule for the element: a user-defined one, or what the first module that knows
    /// it makes. Null if no one knows it.
    CQoxRule* ReadRule(QoxXMLNode* node);

    /// A new user-defined rule for the element; null if it isn't marked as one.
    CQoxRule* CreateUserRule(QoxXMLNode* node);

    /// Tells the framework and every loaded rule module of the document in `g_pXmlDoc`. The
    /// result is false in all cases.
    bool DistributeXmlDoc();

    // --- protection ---

    /// True if the file carries a password.
    bool IsPasswordProtected() const { return bIsRuleFilePasswordProtected; }

    /// True if the rules of the file that was read aren't those that its digest is of.
    bool HasWrongDigest() const { return m_hasWrongDigest; }

    /// Takes a password for the file. False, with nothing taken, if it is too long for one.
    bool SetPassword(const std::wstring& password);

    /// Copies the password; empty without one.
    void GetPassword(std::wstring& password) const { password = strPasswordInRuleFile; }

    /// Adds the password to a root element. False, with nothing added, if it is too long.
    bool WritePassword(QoxXMLNode& root) const;

    /// Adds the digest of the rules to a root element. An empty one is added too; a file
    /// with it isn't protected for a reader.
    static void WriteDigest(QoxXMLNode& root, RulesDigest& digest);

    /// The digest of the rules that stand below a root element; empty if there are none.
    static void ComputeDigest(const QoxXMLNode& root, std::wstring& digest);

    // --- details of a save ---

    /// Takes user, time and path of a save. Path and name of the language are in the system
    /// code page. Files don't carry the details.
    void UpdateFileDetails(const std::string& path, const std::string& language);

    /// The user's name for the system.
    std::wstring GetUserNameText() const;

    /// Date and time as the language, by its English name in any case, writes them. A name
    /// without a form of its own takes month, day and year.
    std::wstring GetDateTimeStamp(const std::string& language) const;
    std::wstring GetFormattedDate(const std::string& language) const;
    std::wstring GetFormattedTime(const std::string& language) const;

    /// Units in which the rules' values stand; the user's choice to begin with.
    structRulesUnit newRuleUnits;
    structRulesUnit oldRuleUnits; ///< Units before the last change.
    std::wstring strName;
    std::wstring strCreatedOn;
    std::wstring strCreatedBy;
    bool m_hasWrongDigest = false;
    bool bIsRuleFilePasswordProtected = false;
    std::wstring strPasswordInRuleFile;

private:
    CQoxRule* ReadRuleThrough(RuleElementReader& reader, QoxXMLNode* node);
    void AppendHeaderAttributes(QoxXMLNode& root) const;
    bool CanWritePassword() const;
    void CheckProtection(const QoxXMLNode& root);

    std::unique_ptr<CQOXRMTreeRootRule> m_treeRoot;
    RuleTable m_rules;
    IUserPrompt* m_prompt; // owned by the program
    LocalClock m_clock;
    Platform::FileCause m_writeFailure = Platform::FileCause::None;
};

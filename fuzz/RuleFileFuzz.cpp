// Reads any bytes as a rule file, writes what was read, reads that and writes it again: the
// second reading must give the same rules, and the second writing the same bytes. A file
// with a password is written with a digest that its reader finds right.

#include "Document/Lumeq.h"
#include "Document/RulePassword.h"
#include "fuzz/FuzzFile.h"
#include "Modules/ApplicationGlobals.h"
#include "Modules/FrameworkLibrary.h"
#include "Modules/ModuleSet.h"
#include "tests/Support/SilentPrompt.h"

#include <Vantrel/QoxRule.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace
{

/// An application without modules, so that the user-defined rules are what is read.
class FuzzApplication : public IRuleApplication, private SilentPrompt
{
public:
    ModuleSet& Modules() override { return m_modules; }
    IUserPrompt& Prompt() override { return *this; }
    void ShowHelp(HelpTopic /*topic*/) override {}
    void SetDocOpenState(int /*state*/) override {}
    Platform::LibraryHandle Framework() override { return LoadFrameworkLibrary(); }

    int boxes = 0;

private:
    void ShowBox(BoxKind /*kind*/, const std::wstring& /*text*/, const std::wstring& /*caption*/) override { ++boxes; }

    ModuleSet m_modules;
};

/// A record with the rules that were read into it.
class LoadedFile
{
public:
    explicit LoadedFile(const FuzzFile& file) : m_loaded(m_record.LoadRuleFile(file.Path()))
    {
        PointerArray rules;
        m_record.GetRules(rules);
        for (CQoxRule* const rule : rules)
        {
            m_rules.emplace_back(rule);
        }
        Require(static_cast<std::size_t>(m_record.GetCount()) == m_rules.size());
        Require(m_loaded || m_rules.empty());
        Require(m_loaded == (g_pXmlDoc == nullptr));
    }

    bool IsLoaded() const { return m_loaded; }
    CQOXRMLumeq& Record() { return m_record; }
    const std::vector<std::unique_ptr<CQoxRule>>& Rules() const { return m_rules; }

private:
    CQOXRMLumeq m_record{ &g_pApp->Prompt() };
    bool m_loaded;
    std::vector<std::unique_ptr<CQoxRule>> m_rules; // the record doesn't own them
};

void CheckIndexes(LoadedFile& file)
{
    std::int32_t index = 0;
    for (const std::unique_ptr<CQoxRule>& rule : file.Rules())
    {
        ++index;
        Require(rule->m_nTreeIndex == index && rule->IsUserDefined());
        CQoxRule* found = nullptr;
        file.Record().FindRule(file.Record().TreeRoot(), index, found);
        Require(found == rule.get());
    }
}

void CheckParameters(const CQoxRule& first, const CQoxRule& second)
{
    Require(first.Parameters().size() == second.Parameters().size());
    for (std::size_t index = 0; index < first.Parameters().size(); ++index)
    {
        const CQoxParamStorage& left = first.Parameters()[index];
        const CQoxParamStorage& right = second.Parameters()[index];
        Require(left.nNumber == right.nNumber && left.eKind == right.eKind);
        Require(left.strName.size() == right.strName.size());
        // A number that stands in a file twice, of a text and of a number, leaves both.
        Require(left.IsNumeric() || left.strValue.size() == right.strValue.size());
        Require(left.choices.size() == right.choices.size());
        Require(left.strUnknownMarkup.empty() == right.strUnknownMarkup.empty());
    }
}

/// Characters that no file may hold became blanks, so texts keep their length only.
void CheckSameRules(const LoadedFile& first, const LoadedFile& second)
{
    Require(first.Rules().size() == second.Rules().size());
    for (std::size_t index = 0; index < first.Rules().size(); ++index)
    {
        const CQoxRule& left = *first.Rules()[index];
        const CQoxRule& right = *second.Rules()[index];
        Require(left.m_strRuleName.size() == right.m_strRuleName.size());
        Require(left.m_strRuleModule == right.m_strRuleModule);
        Require(left.m_nCriticality == right.m_nCriticality);
        Require(left.m_categoryList.size() == right.m_categoryList.size());
        Require(left.m_references.size() == right.m_references.size());
        CheckParameters(left, right);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static FuzzApplication application;
    static const FuzzFile file(".vrf");
    g_pApp = &application;

    file.Write({ reinterpret_cast<const char*>(data), size });
    LoadedFile first(file);
    if (!first.IsLoaded())
    {
        return 0;
    }
    CheckIndexes(first);
    const bool isProtected = first.Record().IsPasswordProtected();
    const bool canBeWritten = !isProtected || RulePassword::Fits(first.Record().strPasswordInRuleFile);
    Require(first.Record().WriteRuleFile(file.Path()) == canBeWritten);
    if (!canBeWritten)
    {
        return 0; // with a longer password than a file can be given
    }
    const std::string written = file.Read();

    application.boxes = 0;
    LoadedFile second(file);
    Require(second.IsLoaded());
    Require(application.boxes == 0);
    Require(second.Record().IsPasswordProtected() == (isProtected && !first.Rules().empty()));
    CheckSameRules(first, second);
    Require(second.Record().newRuleUnits == first.Record().newRuleUnits);
    Require(second.Record().WriteRuleFile(file.Path()));
    // Without rules the protection is lost.
    Require(file.Read() == written || second.Record().IsPasswordProtected() != isProtected);
    return 0;
}

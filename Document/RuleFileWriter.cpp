#include "Document/Lumeq.h"
#include "Document/RuleFileNames.h"
#include "Document/RulesDigest.h"
#include "Document/XmlOperation.h"
#include "Modules/ApplicationGlobals.h"
#include "Modules/ModuleGuard.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"

#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <functional>
#include <memory>
#include <string>
#include <tuple>

namespace
{

void AddText(QoxXMLNode& root, const char* name, const std::wstring& value)
{
    root.AddAttribute1(name, ToNarrow(value).c_str());
}

void AddNumber(QoxXMLNode& root, const char* name, std::int32_t value)
{
    root.AddAttribute1(name, std::to_string(value).c_str());
}

/// Makes the root element of the document in progress.
std::unique_ptr<QoxXMLNode> MakeRoot()
{
    std::unique_ptr<QoxXMLNode> root(g_pXmlDoc->CreateNode1(RuleFileNames::Root));
    g_pXmlDoc->AppendNode(root.get());
    return root;
}

/// What is to be done with each rule that was written, beside writing it.
using ElementObserver = std::function<void(const CQoxRule& rule, const QoxXMLNode& element)>;

void AppendRules(QoxXMLListWriter& writer, const PointerArray& rules, const ElementObserver& beforeAppending)
{
    for (CQoxRule* const rule : rules)
    {
        std::unique_ptr<QoxXMLNode> element;
        GuardModuleCall(rule->m_strModulePath, [&] { element.reset(rule->GetXML()); });
        if (element == nullptr)
        {
            continue; // the rule failed; the others are still saved
        }
        beforeAppending(*rule, *element);
        writer.Append(*element);
    }
}

} // namespace

void CQOXRMLumeq::AppendHeaderAttributes(QoxXMLNode& root) const
{
    AddText(root, RuleFileNames::Name, strName);
    AddText(root, RuleFileNames::CreatedBy, strCreatedBy);
    AddText(root, RuleFileNames::CreatedOn, strCreatedOn);
    AddNumber(root, RuleFileNames::Unit, newRuleUnits.linear);
    AddNumber(root, RuleFileNames::AngularUnit, newRuleUnits.angular);
    root.AddAttribute1(RuleFileNames::Version, RuleFileNames::VersionText);
}

bool CQOXRMLumeq::WriteRuleFile(const std::string& path, const Platform::BeforeReplacing& beforeReplacing)
{
    m_writeFailure = Platform::FileCause::None;
    if (g_pApp == nullptr || path.empty() || !CanWritePassword())
    {
        return false;
    }
    PointerArray rules;
    GetLiveRules(rules);

    XmlOperation::Begin();
    if (!XmlOperation::TellFramework(g_bScriptRuleFile))
    {
        XmlOperation::End();
        return false;
    }
    // Before any element is made: rules make theirs in this document.
    XmlOperation::TellModules();

    const std::unique_ptr<QoxXMLNode> root = MakeRoot();
    AppendHeaderAttributes(*root);
    QoxXMLListWriter writer(*root);
    RulesDigest digest;
    const std::wstring ruleElement = Platform::FromCodePage(RuleFileNames::Rule);
    AppendRules(writer, rules,
                [this, &digest, &ruleElement](const CQoxRule& rule, const QoxXMLNode& element)
                {
                    // What isn't read back as a rule has no part in the digest either.
                    if (bIsRuleFilePasswordProtected && element.GetNodeName() == ruleElement)
                    {
                        digest.Add(element);
                    }
                    LogMessage(L"%s has been added in the file to be saved", rule.m_strRuleName);
                });
    if (bIsRuleFilePasswordProtected)
    {
        WritePassword(*root);
        WriteDigest(*root, digest);
    }

    // A failed write is no failure of the writing of rules, and the old file is still whole:
    // whoever has a user to tell asks for it.
    std::int32_t cause = 0;
    if (!writer.Save1(path.c_str(), beforeReplacing, cause))
    {
        m_writeFailure = static_cast<Platform::FileCause>(cause);
    }
    XmlOperation::End();
    return true;
}

bool CQOXRMLumeq::WriteUserFile(const std::wstring& path)
{
    const std::string narrowPath = ToNarrow(path);
    if (narrowPath.empty() || !CanWritePassword())
    {
        return false;
    }
    PointerArray rules;
    GetLiveRules(rules);

    XmlOperation::Begin();
    const std::unique_ptr<QoxXMLNode> root = MakeRoot();
    AppendHeaderAttributes(*root);
    if (bIsRuleFilePasswordProtected)
    {
        WritePassword(*root);
    }
    QoxXMLListWriter writer(*root);
    AppendRules(writer, rules, [](const CQoxRule&, const QoxXMLNode&) {});
    std::ignore = writer.Save1(narrowPath.c_str()); // what was there is still whole if it fails
    XmlOperation::End();
    return true;
}

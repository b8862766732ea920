#include "Document/Lumeq.h"
#include "Document/RuleElementReader.h"
#include "Document/RuleFileNames.h"
#include "Document/XmlOperation.h"
#include "Modules/ApplicationGlobals.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"
#include "Utilities/Texts.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/QoxXml.h>

#include <charconv>
#include <memory>

namespace
{

const ModuleSet* LoadedModules()
{
    return g_pApp != nullptr ? &g_pApp->Modules() : nullptr;
}

/// Takes a decimal integer at the start of an attribute's text, after blanks; what stands
/// behind it doesn't matter. A missing attribute, a text without a number or a number of
/// more than 32 bits leaves the value.
void ReadUnit(const QoxXMLNode& root, const char* name, std::int32_t& unit)
{
    char* value = nullptr;
    if (!root.GetAttributeValue1(name, value))
    {
        return;
    }
    const std::unique_ptr<char[]> owned(value);
    const std::string text = value;
    std::size_t start = text.find_first_not_of(" \t\r\n\v\f");
    if (start == std::string::npos)
    {
        return;
    }
    if (text[start] == '+' && text.compare(start, 2, "+-") != 0)
    {
        ++start;
    }
    std::int32_t parsed = 0;
    if (std::from_chars(text.data() + start, text.data() + text.size(), parsed).ec == std::errc())
    {
        unit = parsed;
    }
}

/// Reads the root element of the file into the record, in the document that is in progress.
bool ReadInto(CQOXRMLumeq& record, const std::string& path)
{
    const std::unique_ptr<QoxXMLNode> root(g_pXmlDoc->LoadFromFile1(path.c_str()));
    if (root == nullptr)
    {
        return false; // the document stays until the next load or save
    }
    record.ReadHeader(root.get());
    XmlOperation::End();
    return true;
}

} // namespace

bool CQOXRMLumeq::LoadRuleFile(const std::string& path)
{
    if (path.empty())
    {
        return false;
    }
    XmlOperation::Begin();
    DistributeXmlDoc();
    return ReadInto(*this, path);
}

bool CQOXRMLumeq::LoadRuleList(const std::wstring& path)
{
    const std::string narrowPath = ToNarrow(path);
    if (narrowPath.empty())
    {
        return false;
    }
    XmlOperation::Begin();
    return ReadInto(*this, narrowPath);
}

bool CQOXRMLumeq::DistributeXmlDoc()
{
    if (XmlOperation::TellFramework(false))
    {
        XmlOperation::TellModules();
    }
    return false;
}

void CQOXRMLumeq::ReadHeader(QoxXMLNode* root)
{
    if (root == nullptr)
    {
        return;
    }
    // The version attribute has no bearing on how a file is read.
    ReadUnit(*root, RuleFileNames::Unit, newRuleUnits.linear);
    ReadUnit(*root, RuleFileNames::AngularUnit, newRuleUnits.angular);

    CheckProtection(*root);

    const std::unique_ptr<QoxXMLNodeList> elements(root->GetNodeList1(RuleFileNames::Rule));
    if (elements == nullptr)
    {
        return;
    }
    RuleElementReader reader(LoadedModules());
    const long count = elements->GetSize();
    for (long position = 0; position < count; ++position)
    {
        const std::unique_ptr<QoxXMLNode> element((*elements)[position]);
        if (element == nullptr)
        {
            continue;
        }
        // A rule that no loaded module knows is left out without a word.
        if (CQoxRule* const rule = ReadRuleThrough(reader, element.get()))
        {
            std::int32_t index = 0;
            AddRule(rule, index);
            LogMessage(L"%s rule has been added", rule->m_strRuleName);
        }
    }
}

CQoxRule* CQOXRMLumeq::ReadRule(QoxXMLNode* node)
{
    RuleElementReader reader(LoadedModules());
    return ReadRuleThrough(reader, node);
}

CQoxRule* CQOXRMLumeq::ReadRuleThrough(RuleElementReader& reader, QoxXMLNode* node)
{
    // Compared exactly here and without regard to case in CreateUserRule: a mark in another
    // case is offered to the modules first, and files in the field rely on both.
    std::wstring ruleModule;
    node->GetAttributeValue(RuleFileNames::RuleModule, ruleModule);
    if (ruleModule != InteractiveRuleMark && ruleModule != VSTARuleMark)
    {
        if (CQoxRule* const rule = reader.Read(node))
        {
            return rule;
        }
    }
    return CreateUserRule(node);
}

CQoxRule* CQOXRMLumeq::CreateUserRule(QoxXMLNode* node)
{
    std::wstring ruleModule;
    node->GetAttributeValue(LoadText(TextId::RuleModuleAttribute), ruleModule);
    if (!Platform::EqualsNoCase(ruleModule, InteractiveRuleMark) && !Platform::EqualsNoCase(ruleModule, VSTARuleMark))
    {
        return nullptr;
    }
    auto rule = std::make_unique<ConcreteQOXRule>();
    rule->PopulateParametersFromXML(node);
    return rule.release(); // to the document that holds the record
}

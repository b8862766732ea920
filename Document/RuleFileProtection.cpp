#include "Document/Lumeq.h"
#include "Document/RuleFileNames.h"
#include "Document/RulePassword.h"
#include "Document/RulesDigest.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"
#include "Utilities/Texts.h"
#include "Utilities/UserPrompt.h"

#include <Vantrel/QoxXml.h>

#include <memory>
#include <optional>

bool CQOXRMLumeq::SetPassword(const std::wstring& password)
{
    if (!RulePassword::Fits(password))
    {
        return false;
    }
    strPasswordInRuleFile = password;
    bIsRuleFilePasswordProtected = true;
    return true;
}

/// A file may bring a longer password along than one can be given.
bool CQOXRMLumeq::CanWritePassword() const
{
    return !bIsRuleFilePasswordProtected || RulePassword::Fits(strPasswordInRuleFile);
}

bool CQOXRMLumeq::WritePassword(QoxXMLNode& root) const
{
    const std::optional<std::wstring> packed = RulePassword::Pack(strPasswordInRuleFile);
    return packed && root.AddAttribute(RuleFileNames::Password, *packed);
}

void CQOXRMLumeq::WriteDigest(QoxXMLNode& root, RulesDigest& digest)
{
    root.AddAttribute(RuleFileNames::RulesData, digest.Finish());
}

void CQOXRMLumeq::ComputeDigest(const QoxXMLNode& root, std::wstring& digest)
{
    RulesDigest rules;
    if (const std::unique_ptr<QoxXMLNodeList> elements(root.GetNodeList1(RuleFileNames::Rule)); elements != nullptr)
    {
        const long count = elements->GetSize();
        for (long position = 0; position < count; ++position)
        {
            if (const std::unique_ptr<QoxXMLNode> element((*elements)[position]); element != nullptr)
            {
                rules.Add(*element);
            }
        }
    }
    digest = rules.Finish();
}

void CQOXRMLumeq::CheckProtection(const QoxXMLNode& root)
{
    std::wstring packed;
    std::wstring expected;
    root.GetAttributeValue(RuleFileNames::Password, packed);
    root.GetAttributeValue(RuleFileNames::RulesData, expected);
    if (packed.empty() || expected.empty())
    {
        return;
    }
    strPasswordInRuleFile = RulePassword::Unpack(packed);
    bIsRuleFilePasswordProtected = true;

    std::wstring digest;
    ComputeDigest(root, digest);
    m_hasWrongDigest = digest != expected;
    if (m_hasWrongDigest && m_prompt != nullptr)
    {
        m_prompt->ShowBox(BoxKind::Warning, LoadText(TextId::RuleFileModified), LoadText(TextId::ApplicationTitle));
    }
}

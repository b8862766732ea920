#include "Document/UserRuleFile.h"

#include "Document/DamagedFile.h"
#include "Document/Lumeq.h"
#include "Modules/ScriptDirectory.h"
#include "Platform/Files.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"

#include <Vantrel/QoxRule.h>

#include <memory>
#include <vector>

namespace
{

constexpr const wchar_t* UserDefinedFileName = L"UserDefinedFile.xml";

} // namespace

std::wstring UserDefinedRuleFilePath()
{
    std::wstring folder;
    if (!GetScriptDirectory(folder))
    {
        return {};
    }
    return folder + Platform::PathSeparator + UserDefinedFileName;
}

void ChangeRuleInUserFile(const std::wstring& filePath, CQoxRule* rule, UserRuleChange change, const std::wstring& name)
{
    const std::string narrowPath = ToNarrow(filePath);
    if (rule == nullptr || narrowPath.empty())
    {
        return;
    }
    CQOXRMLumeq presentRecord;
    PointerArray presentRules;
    std::vector<std::unique_ptr<CQoxRule>> ownedRules; // the records don't own what was read
    if (presentRecord.LoadRuleList(filePath))
    {
        presentRecord.GetRules(presentRules);
        for (CQoxRule* const present : presentRules)
        {
            ownedRules.emplace_back(present);
        }
    }
    else
    {
        KeepDamagedFile(filePath);
    }

    std::int32_t index = 0;
    if (change == UserRuleChange::Add)
    {
        presentRecord.AddRule(rule, index);
        presentRecord.WriteRuleFile(narrowPath);
        return;
    }
    CQOXRMLumeq changedRecord;
    for (CQoxRule* const present : presentRules)
    {
        if (change == UserRuleChange::Delete)
        {
            if (!Platform::EqualsNoCase(present->m_strRuleName, rule->m_strRuleName))
            {
                changedRecord.AddRule(present, index);
            }
        }
        else
        {
            const bool isEdited = Platform::EqualsNoCase(present->m_strRuleName, name);
            changedRecord.AddRule(isEdited ? rule : present, index);
        }
    }
    changedRecord.WriteRuleFile(narrowPath);
}

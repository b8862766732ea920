#include "Document/ModuleReload.h"

#include "Document/RuleDocument.h"
#include "Modules/ModuleSet.h"
#include "Modules/RuleModule.h"
#include "Platform/Files.h"
#include "Utilities/QOXUIUtils.h"

void ReloadRuleModules(ModuleSet& modules, const std::vector<OpenRuleDocument>& documents)
{
    ModuleSet::Handles listConfigModulesToFree;
    modules.LoadConfigModules(listConfigModulesToFree);
    modules.UpdateDBModuleList();
    for (const OpenRuleDocument& document : documents)
    {
        // The rows' rules stand in the document's units, which the file may not have yet.
        const bool isAsInFile = !document.isModified && !document.rules.HaveUnitsChanged();
        if (isAsInFile && !document.path.empty() && Platform::FileExists(document.path))
        {
            CQOXRMLumeq& header = document.rules.Header();
            const structRulesUnit newUnits = header.newRuleUnits;
            const structRulesUnit oldUnits = header.oldRuleUnits;
            header.LoadRuleFile(ToNarrow(document.path));
            // Others may have saved it in other units since; the values in the rows stay.
            header.newRuleUnits = newUnits;
            header.oldRuleUnits = oldUnits;
        }
        document.reloadViews();
    }
    for (const Platform::LibraryHandle leaving : listConfigModulesToFree)
    {
        const std::wstring modulePath = RuleModule(leaving).Path();
        for (const OpenRuleDocument& document : documents)
        {
            document.rules.ReleaseRulesOf(modulePath);
        }
    }
    // Only now: until the views were filled anew, rules pointed into these.
    ModuleSet::FreeModules(listConfigModulesToFree);
}

#include "Document/ModuleReload.h"

#include "Document/RuleDocument.h"
#include "Modules/ModuleSet.h"
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
            document.rules.Header().LoadRuleFile(ToNarrow(document.path));
        }
        document.reloadViews();
    }
    // Only now: until the views were filled anew, rules pointed into these.
    ModuleSet::FreeModules(listConfigModulesToFree);
}

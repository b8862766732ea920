#include "Modules/ModuleRegDlgs.h"

#include <tuple>
#include <utility>

namespace
{

int Run(CQOXRuleRegDlg& dialog, ModuleRegistration& registration, const std::function<void()>& reload)
{
    const int result = dialog.ShowModal();
    if (result != wxID_OK)
    {
        registration.Discard();
        return result;
    }
    // A failure is in the log; the running program goes on with the new list all the same.
    std::ignore = registration.Save();
    reload();
    return result;
}

} // namespace

CQOXRuleConfigModuleRegDlg::CQOXRuleConfigModuleRegDlg(wxWindow* parent, ModuleSet& modules,
                                                       ModuleRegistration::Places places, std::function<void()> reload,
                                                       IUserPrompt& prompt)
    : m_registration(RuleModules, modules.ConfigModules(), modules.ConfigModulePaths(), std::move(places), prompt),
      m_reload(std::move(reload)), m_dialog(parent, m_registration, prompt)
{
}

int CQOXRuleConfigModuleRegDlg::DoModal()
{
    return Run(m_dialog, m_registration, m_reload);
}

CQOXRuleDBModuleRegDlg::CQOXRuleDBModuleRegDlg(wxWindow* parent, ModuleSet& modules, ModuleRegistration::Places places,
                                               std::function<void()> reload, IUserPrompt& prompt)
    : m_registration(DatabaseModules, modules.DBModules(), modules.DBModulePaths(), std::move(places), prompt),
      m_reload(std::move(reload)), m_dialog(parent, m_registration, prompt)
{
}

int CQOXRuleDBModuleRegDlg::DoModal()
{
    return Run(m_dialog, m_registration, m_reload);
}

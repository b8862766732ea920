#pragma once

#include "Modules/RuleRegDlg.h"

#include <functional>

/// The registration of rule modules.
class CQOXRuleConfigModuleRegDlg
{
public:
    /// `reload` brings the program in line with the new list of paths. What is passed by
    /// reference must outlive the object.
    CQOXRuleConfigModuleRegDlg(wxWindow* parent, ModuleSet& modules, ModuleRegistration::Places places,
                               std::function<void()> reload, IUserPrompt& prompt);

    /// Shows the dialog; once it is closed, saves and reloads, or discards. The dialog's result.
    int DoModal();

    CQOXRuleRegDlg& Dialog() { return m_dialog; }

private:
    ModuleRegistration m_registration;
    std::function<void()> m_reload;
    CQOXRuleRegDlg m_dialog;
};

/// The registration of database modules, in the same way.
class CQOXRuleDBModuleRegDlg
{
public:
    CQOXRuleDBModuleRegDlg(wxWindow* parent, ModuleSet& modules, ModuleRegistration::Places places,
                           std::function<void()> reload, IUserPrompt& prompt);

    int DoModal();

    CQOXRuleRegDlg& Dialog() { return m_dialog; }

private:
    ModuleRegistration m_registration;
    std::function<void()> m_reload;
    CQOXRuleRegDlg m_dialog;
};

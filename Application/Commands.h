#pragma once

#include "Utilities/Texts.h"

#include <wx/defs.h>

#include <algorithm>
#include <array>
#include <optional>

/// One command of the main window: where it stands and what it is called. Menus, bars and the
/// help of the status bar are made from the table; which command stands on which bar, and which
/// has a tip there, is in CommandBars.h.
struct Command
{
    int id;
    std::optional<TextId> menu; ///< Nothing for a command that stands on bars alone.
    TextId text;
    TextId tip;       ///< Shown by the status bar while the item is pointed at.
    const char* icon; ///< Name of a picture in Application/Icons.
    wxItemKind kind;
    bool separatorBefore;
};

/// Numbers of the program's own commands.
enum CommandId : int
{
    CommandToggleLog = wxID_HIGHEST + 1,
    CommandSetPassword,
    CommandUnitSettings,
    CommandEditRule,
    CommandEditRuleButton,
    CommandEditRuleHere, ///< Of the menu that a right click opens, like those that follow.
    CommandTickRule,
    CommandSelectAllRules,
    CommandRuleModules,
    CommandDatabaseModules,
    CommandScriptLocation,
    CommandScriptRules,
    CommandSecondToolBar,
    CommandNextPane,
    CommandShowTab, ///< The first tab of the command strip; the others follow it in their order.
    CommandShowTabLast = CommandShowTab + 3,
};

/// All of them edit the first selected rule.
inline constexpr std::array EditRuleCommands = { CommandEditRule, CommandEditRuleButton, CommandEditRuleHere };

/// The menus of the main window, in their order.
inline constexpr std::array MenuTable = { TextId::MenuFile, TextId::MenuEdit, TextId::MenuView, TextId::MenuModules,
                                          TextId::MenuHelp };

inline constexpr std::array CommandTable = {
    Command{ wxID_NEW, TextId::MenuFile, TextId::CommandNew, TextId::TipNew, "new", wxITEM_NORMAL, false },
    Command{ wxID_OPEN, TextId::MenuFile, TextId::CommandOpen, TextId::TipOpen, "open", wxITEM_NORMAL, false },
    Command{ wxID_CLOSE, TextId::MenuFile, TextId::CommandClose, TextId::TipClose, "close", wxITEM_NORMAL, false },
    Command{ wxID_SAVE, TextId::MenuFile, TextId::CommandSave, TextId::TipSave, "save", wxITEM_NORMAL, true },
    Command{ wxID_SAVEAS, TextId::MenuFile, TextId::CommandSaveAs, TextId::TipSaveAs, "save-as", wxITEM_NORMAL, false },
    Command{ CommandSetPassword, TextId::MenuFile, TextId::CommandSetPassword, TextId::TipSetPassword, "password",
             wxITEM_NORMAL, false },
    Command{ CommandUnitSettings, TextId::MenuFile, TextId::CommandUnitSettings, TextId::TipUnitSettings, "units",
             wxITEM_NORMAL, false },
    Command{ wxID_PAGE_SETUP, TextId::MenuFile, TextId::CommandPrintSetup, TextId::TipPrintSetup, "print-setup",
             wxITEM_NORMAL, true },
    Command{ wxID_EXIT, TextId::MenuFile, TextId::CommandExit, TextId::TipExit, "exit", wxITEM_NORMAL, true },
    Command{ CommandEditRule, TextId::MenuEdit, TextId::CommandEditRule, TextId::TipEditRule, "edit-rule",
             wxITEM_NORMAL, false },
    Command{
        CommandEditRuleButton, {}, TextId::CommandEditRule, TextId::TipEditRule, "edit-rule", wxITEM_NORMAL, false },
    Command{ CommandSecondToolBar, TextId::MenuView, TextId::CommandSecondToolBar, TextId::TipSecondToolBar,
             "quick-bar", wxITEM_CHECK, false },
    Command{ CommandShowTab, TextId::MenuView, TextId::CommandTabFile, TextId::TipShowTab, "tab-file", wxITEM_NORMAL,
             true },
    Command{ CommandShowTab + 1, TextId::MenuView, TextId::CommandTabRules, TextId::TipShowTab, "tab-rules",
             wxITEM_NORMAL, false },
    Command{ CommandShowTab + 2, TextId::MenuView, TextId::CommandTabModules, TextId::TipShowTab, "tab-modules",
             wxITEM_NORMAL, false },
    Command{ CommandShowTabLast, TextId::MenuView, TextId::CommandTabLog, TextId::TipShowTab, "tab-log", wxITEM_NORMAL,
             false },
    Command{ CommandNextPane, TextId::MenuView, TextId::CommandNextPane, TextId::TipNextPane, "next-pane",
             wxITEM_NORMAL, false },
    Command{ CommandToggleLog, TextId::MenuView, TextId::CommandLog, TextId::TipLog, "log", wxITEM_CHECK, true },
    Command{ CommandRuleModules, TextId::MenuModules, TextId::CommandRuleModules, TextId::TipRuleModules,
             "rule-modules", wxITEM_NORMAL, false },
    Command{ CommandDatabaseModules, TextId::MenuModules, TextId::CommandDatabaseModules, TextId::TipDatabaseModules,
             "database-modules", wxITEM_NORMAL, false },
    Command{ CommandScriptLocation, TextId::MenuModules, TextId::CommandScriptLocation, TextId::TipScriptLocation,
             "script-location", wxITEM_NORMAL, true },
    Command{ wxID_HELP, TextId::MenuHelp, TextId::CommandHelp, TextId::TipHelp, "help", wxITEM_NORMAL, false },
    Command{ wxID_ABOUT, TextId::MenuHelp, TextId::CommandAbout, TextId::TipAbout, "about", wxITEM_NORMAL, false },
};

/// The row of a command; null for a number that has none, which stands in no menu and on no bar.
constexpr const Command* FindCommand(int id)
{
    const auto* const row = std::find_if(CommandTable.begin(), CommandTable.end(),
                                         [id](const Command& command) { return command.id == id; });
    return row == CommandTable.end() ? nullptr : row;
}

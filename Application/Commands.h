#pragma once

#include "Utilities/Texts.h"

#include <wx/artprov.h>
#include <wx/defs.h>

#include <array>
#include <optional>

/// One command of the main window: where it stands and what it is called. Menus, tool bar
/// and tips are made from the table.
struct Command
{
    int id;
    std::optional<TextId> menu; ///< Nothing for a command that stands in the tool bar alone.
    TextId text;
    TextId tip;
    const char* toolBarArt; ///< Null for a command without a button.
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
};

/// All of them edit the first selected rule.
inline constexpr std::array EditRuleCommands = { CommandEditRule, CommandEditRuleButton, CommandEditRuleHere };

/// The menus of the main window, in their order.
inline constexpr std::array MenuTable = { TextId::MenuFile, TextId::MenuEdit, TextId::MenuView, TextId::MenuModules,
                                          TextId::MenuHelp };

inline constexpr std::array CommandTable = {
    Command{ wxID_NEW, TextId::MenuFile, TextId::CommandNew, TextId::TipNew, wxART_NEW, wxITEM_NORMAL, false },
    Command{ wxID_OPEN, TextId::MenuFile, TextId::CommandOpen, TextId::TipOpen, wxART_FILE_OPEN, wxITEM_NORMAL, false },
    Command{ wxID_CLOSE, TextId::MenuFile, TextId::CommandClose, TextId::TipClose, nullptr, wxITEM_NORMAL, false },
    Command{ wxID_SAVE, TextId::MenuFile, TextId::CommandSave, TextId::TipSave, wxART_FILE_SAVE, wxITEM_NORMAL, true },
    Command{ wxID_SAVEAS, TextId::MenuFile, TextId::CommandSaveAs, TextId::TipSaveAs, nullptr, wxITEM_NORMAL, false },
    Command{ CommandSetPassword, TextId::MenuFile, TextId::CommandSetPassword, TextId::TipSetPassword, nullptr,
             wxITEM_NORMAL, false },
    Command{ CommandUnitSettings, TextId::MenuFile, TextId::CommandUnitSettings, TextId::TipUnitSettings, nullptr,
             wxITEM_NORMAL, false },
    Command{ wxID_EXIT, TextId::MenuFile, TextId::CommandExit, TextId::TipExit, nullptr, wxITEM_NORMAL, true },
    Command{ CommandEditRule, TextId::MenuEdit, TextId::CommandEditRule, TextId::TipEditRule, nullptr, wxITEM_NORMAL,
             false },
    Command{ CommandEditRuleButton, {}, TextId::CommandEditRule, TextId::TipEditRule, wxART_EDIT, wxITEM_NORMAL, true },
    Command{ CommandToggleLog, TextId::MenuView, TextId::CommandLog, TextId::TipLog, nullptr, wxITEM_CHECK, false },
    Command{ CommandRuleModules, TextId::MenuModules, TextId::CommandRuleModules, TextId::TipRuleModules,
             wxART_LIST_VIEW, wxITEM_NORMAL, false },
    Command{ CommandDatabaseModules, TextId::MenuModules, TextId::CommandDatabaseModules, TextId::TipDatabaseModules,
             wxART_HARDDISK, wxITEM_NORMAL, false },
    Command{ CommandScriptLocation, TextId::MenuModules, TextId::CommandScriptLocation, TextId::TipScriptLocation,
             nullptr, wxITEM_NORMAL, true },
    Command{ wxID_HELP, TextId::MenuHelp, TextId::CommandHelp, TextId::TipHelp, nullptr, wxITEM_NORMAL, false },
    Command{ wxID_ABOUT, TextId::MenuHelp, TextId::CommandAbout, TextId::TipAbout, nullptr, wxITEM_NORMAL, false },
};

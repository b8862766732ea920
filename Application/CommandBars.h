#pragma once

#include "Application/Commands.h"

#include <span>
#include <string>

/// Which commands stand on the bars of the main window.

/// A tab of the command strip: its picture, its tip and its buttons.
struct CommandTab
{
    TextId tip;
    const char* icon;
    std::span<const int> commands;
};

namespace TabCommands
{

inline constexpr std::array<int, 6> File = { wxID_NEW, wxID_OPEN, wxID_SAVE, wxID_SAVEAS, wxID_PAGE_SETUP, wxID_HELP };
inline constexpr std::array<int, 4> Rules = { CommandEditRuleButton, CommandUnitSettings, CommandSetPassword,
                                              wxID_HELP };
inline constexpr std::array<int, 4> Modules = { CommandRuleModules, CommandDatabaseModules, CommandScriptRules,
                                                CommandScriptLocation };
inline constexpr std::array<int, 1> Log = { CommandToggleLog };

} // namespace TabCommands

/// The tabs in their order. A command without a row in the command table has no button.
inline constexpr std::array CommandTabs = {
    CommandTab{ TextId::TabFile, "tab-file", TabCommands::File },
    CommandTab{ TextId::TabRules, "tab-rules", TabCommands::Rules },
    CommandTab{ TextId::TabModules, "tab-modules", TabCommands::Modules },
    CommandTab{ TextId::TabLog, "tab-log", TabCommands::Log },
};
static_assert(CommandShowTab + static_cast<int>(CommandTabs.size()) - 1 == CommandShowTabLast);

/// The commands of the quick tool bar, in their order, which are those that have a tip: its
/// buttons have no labels.
inline constexpr std::array<int, 8> QuickBarCommands = {
    wxID_NEW,           wxID_OPEN, wxID_SAVE, CommandEditRuleButton, CommandRuleModules, CommandDatabaseModules,
    CommandScriptRules, wxID_HELP,
};

/// The tip of a command's buttons, cut to what a tip holds; empty for a command without one.
std::wstring ToolTipOf(int command);

/// What a command's button says.
std::wstring ButtonLabelOf(const Command& command);

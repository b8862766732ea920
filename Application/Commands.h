#pragma once

#include "Utilities/Texts.h"

#include <wx/artprov.h>
#include <wx/defs.h>

#include <array>
#include <optional>

/// One command of the main window: where it stands and what it is called. Menus, tool bar
/// and tips are made from the table. Commands without a text take the platform's own.
struct Command
{
    int id;
    TextId menu;
    std::optional<TextId> text;
    std::optional<TextId> tip;
    const char* toolBarArt; ///< Null for a command without a button.
    wxItemKind kind;
    bool separatorBefore;
};

/// Numbers of the program's own commands.
enum CommandId : int
{
    CommandToggleLog = wxID_HIGHEST + 1,
    CommandSetPassword,
};

inline constexpr std::array CommandTable = {
    Command{ wxID_NEW, TextId::MenuFile, {}, TextId::TipNew, wxART_NEW, wxITEM_NORMAL, false },
    Command{ wxID_OPEN, TextId::MenuFile, {}, TextId::TipOpen, wxART_FILE_OPEN, wxITEM_NORMAL, false },
    Command{ wxID_CLOSE, TextId::MenuFile, {}, TextId::TipClose, nullptr, wxITEM_NORMAL, false },
    Command{ wxID_SAVE, TextId::MenuFile, {}, TextId::TipSave, wxART_FILE_SAVE, wxITEM_NORMAL, true },
    Command{ wxID_SAVEAS, TextId::MenuFile, {}, TextId::TipSaveAs, nullptr, wxITEM_NORMAL, false },
    Command{ CommandSetPassword, TextId::MenuFile, TextId::CommandSetPassword, TextId::TipSetPassword, nullptr,
             wxITEM_NORMAL, false },
    Command{ wxID_EXIT, TextId::MenuFile, {}, TextId::TipExit, nullptr, wxITEM_NORMAL, true },
    Command{ CommandToggleLog, TextId::MenuView, TextId::CommandLog, TextId::TipLog, nullptr, wxITEM_CHECK, false },
    Command{ wxID_ABOUT, TextId::MenuHelp, {}, TextId::TipAbout, nullptr, wxITEM_NORMAL, false },
};

#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

/// Numbers of the texts that a user reads. They are stable: language libraries, which hold
/// the translations, are made against them.
enum class TextId : std::uint32_t
{
    ApplicationTitle = 61000,
    AutomationFailed,
    FileOnCommandLineMissing,
    NoDatabaseModule,
    LogFolder,
    DocumentTypeName,
    DocumentFilter,
    RuleModuleAttribute,
    RuleCount,
    ColumnName,
    ColumnCategory,
    ColumnModule,
    ColumnCriticality,
    Criticality1,
    Criticality2,
    Criticality3,
    Criticality4,
    Criticality5,
    SummaryLabel,
    RuleFileModified,
    FileNotSaved,
    FileNotOpened,
    PackageNotImported,
    MenuFile,
    MenuView,
    MenuHelp,
    CommandLog,
    TipLog,
    AboutText,
    RulesNotLoaded,
    TipNew,
    TipOpen,
    TipClose,
    TipSave,
    TipSaveAs,
    TipExit,
    TipAbout,
    WrongPassword,
    PasswordTooLong,
    SetPasswordTitle,
    SetPasswordLabel,
    EnterPasswordTitle,
    EnterPasswordLabel,
    PasswordField,
    CommandSetPassword,
    TipSetPassword,
    FileNotFound,
    OpenReadOnly,
    FileHolder,
    ChangesNotSaved,
    OthersMayHaveChanged,
    FileNotWritten,
    FileInUse,
    DiskFull,
};

/// The text of a number in the program's own language.
std::wstring LoadText(TextId id);

/// The text of a number with `%1`, `%2`, ... replaced by the arguments.
std::wstring FormatText(TextId id, std::initializer_list<std::wstring> arguments);

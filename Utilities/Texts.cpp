#include "Utilities/Texts.h"

#include <algorithm>
#include <array>

namespace
{

struct Entry
{
    TextId id;
    const wchar_t* text;
};

// The program's own texts, in the order of their numbers.
constexpr std::array Entries = {
    Entry{ TextId::ApplicationTitle, L"Vantrel Rule Manager" },
    Entry{ TextId::AutomationFailed,
           L"OLE initialization failed. Make sure that the OLE libraries are the right version." },
    Entry{ TextId::FileOnCommandLineMissing,
           L"The rule file \"%1\" does not exist. A new document is opened instead." },
    Entry{ TextId::NoDatabaseModule,
           L"No rule database module is loaded, so the rule modules can't offer their rules. Check the section "
           L"RULE_DATABASE_MODULES of ConfigModule.ini." },
    Entry{ TextId::LogFolder, L"The log file \"Vantrel_RuleBuilder.vantrellog\" is written in the folder \"%1\"." },
    Entry{ TextId::DocumentTypeName, L"Rule File" },
    Entry{ TextId::DocumentFilter, L"Rule Files (*.vrf)" },
    Entry{ TextId::RuleModuleAttribute, L"RuleModule" },
    Entry{ TextId::RuleCount, L"%1 of %2 rules selected" },
    Entry{ TextId::ColumnName, L"Rule" },
    Entry{ TextId::ColumnCategory, L"Category" },
    Entry{ TextId::ColumnModule, L"Module" },
    Entry{ TextId::ColumnCriticality, L"Criticality" },
    Entry{ TextId::Criticality1, L"Very low" },
    Entry{ TextId::Criticality2, L"Low" },
    Entry{ TextId::Criticality3, L"Medium" },
    Entry{ TextId::Criticality4, L"High" },
    Entry{ TextId::Criticality5, L"Critical" },
    Entry{ TextId::SummaryLabel, L"Rule summary" },
    Entry{ TextId::RuleFileModified, L"Rule File is modifed..." },
    Entry{ TextId::FileNotSaved,
           L"\"%1\" could not be saved: the file or its folder can't be written to. The file is as it was." },
    Entry{ TextId::FileNotOpened, L"\"%1\" could not be opened: it can't be read, or it is not a rule file." },
    Entry{ TextId::PackageNotImported, L"\"%1\" was not imported: this version can't import script rule packages." },
    Entry{ TextId::MenuFile, L"&File" },
    Entry{ TextId::MenuView, L"&View" },
    Entry{ TextId::MenuHelp, L"&Help" },
    Entry{ TextId::CommandLog, L"&Write Log File" },
    Entry{ TextId::TipLog, L"Writes what the program does into a log file, until it is switched off" },
    Entry{ TextId::AboutText, L"Decides what a company's designs are checked against." },
    Entry{ TextId::RulesNotLoaded, L"The framework library is missing beside the program. Install the program again." },
    Entry{ TextId::TipNew, L"Makes a new, empty rule document" },
    Entry{ TextId::TipOpen, L"Opens a rule file" },
    Entry{ TextId::TipClose, L"Closes the active document" },
    Entry{ TextId::TipSave, L"Saves the active document" },
    Entry{ TextId::TipSaveAs, L"Saves the active document under another name" },
    Entry{ TextId::TipExit, L"Ends the program and asks about documents that aren't saved" },
    Entry{ TextId::TipAbout, L"Shows what the program is" },
    Entry{ TextId::WrongPassword, L"Rule file is password protected...Wrong Password..." },
    Entry{ TextId::PasswordTooLong, L"The password is too long. A rule file has room for %1 characters." },
    Entry{ TextId::SetPasswordTitle, L"Set Password" },
    Entry{ TextId::SetPasswordLabel,
           L"Saving this rule file will need the password. It can't be changed or removed later. Anyone can "
           L"still open the file." },
    Entry{ TextId::EnterPasswordTitle, L"Enter Password" },
    Entry{ TextId::EnterPasswordLabel, L"This rule file is protected. It is saved only with its password." },
    Entry{ TextId::PasswordField, L"&Password:" },
    Entry{ TextId::CommandSetPassword, L"Set &Password...\tCtrl+L" },
    Entry{ TextId::TipSetPassword, L"Sets the password that saving the active document will need" },
    Entry{ TextId::FileNotFound, L"\"%1\" could not be opened: it is not there, or its path is wrong." },
    Entry{ TextId::OpenReadOnly,
           L"\"%1\" is being used by someone else, or it may not be written to.%2 Open it read-only?" },
    Entry{ TextId::FileHolder, L"It is open for the user \"%1\"." },
    Entry{ TextId::ChangesNotSaved,
           L"\"%1\" was opened read-only, and it still can't be written to.%2 Save the changes under another name." },
    Entry{ TextId::OthersMayHaveChanged,
           L"\"%1\" was opened read-only, and whoever used it has let go of it since. What was changed there "
           L"meanwhile is replaced by this document." },
    Entry{ TextId::FileNotWritten, L"\"%1\" could not be saved: the file can't be written. It is as it was." },
    Entry{ TextId::FileInUse, L"\"%1\" could not be saved: it is being used by someone else.%2 It is as it was." },
    Entry{ TextId::DiskFull, L"\"%1\" could not be saved: the disk is full. The file is as it was." },
};

static_assert(static_cast<std::uint32_t>(Entries.back().id) - static_cast<std::uint32_t>(Entries.front().id) + 1 ==
              Entries.size());

} // namespace

std::wstring LoadText(TextId id)
{
    const auto found = std::lower_bound(Entries.begin(), Entries.end(), id,
                                        [](const Entry& entry, TextId wanted) { return entry.id < wanted; });
    return found != Entries.end() && found->id == id ? found->text : L"";
}

std::wstring FormatText(TextId id, std::initializer_list<std::wstring> arguments)
{
    const std::wstring pattern = LoadText(id);
    std::wstring text;
    for (std::size_t position = 0; position < pattern.size(); ++position)
    {
        const bool isPlaceholder = pattern[position] == L'%' && position + 1 < pattern.size() &&
                                   pattern[position + 1] >= L'1' &&
                                   pattern[position + 1] < L'1' + static_cast<wchar_t>(arguments.size());
        if (!isPlaceholder)
        {
            text += pattern[position];
            continue;
        }
        // What an argument holds is never taken for a placeholder.
        ++position;
        text += arguments.begin()[pattern[position] - L'1'];
    }
    return text;
}

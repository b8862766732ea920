#include "Application/CommandBars.h"

#include "Application/TabBarSizes.h"
#include "Application/ToolTipText.h"
#include "Platform/Text.h"

namespace
{

struct CommandTip
{
    int command;
    TextId tip;
};

constexpr std::array Tips = {
    CommandTip{ CommandRuleModules, TextId::TipRuleModules },
    CommandTip{ CommandDatabaseModules, TextId::TipDatabaseModules },
    CommandTip{ CommandScriptRules, TextId::TipScriptRules },
    CommandTip{ CommandEditRuleButton, TextId::TipEditRule },
    CommandTip{ wxID_NEW, TextId::TipNew },
    CommandTip{ wxID_OPEN, TextId::TipOpen },
    CommandTip{ wxID_SAVE, TextId::TipSave },
    CommandTip{ wxID_HELP, TextId::TipHelp },
};
static_assert(Tips.size() == QuickBarCommands.size());

} // namespace

std::wstring ToolTipOf(int command)
{
    const auto* const found =
        std::find_if(Tips.begin(), Tips.end(), [command](const CommandTip& tip) { return tip.command == command; });
    return found == Tips.end() ? std::wstring() : Platform::Utf16ToWide(ToolTipUnits(LoadText(found->tip)));
}

std::wstring ButtonLabelOf(const Command& command)
{
    return ButtonLabel(LoadText(command.text));
}

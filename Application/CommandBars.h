#pragma once

#include "Application/Commands.h"

/// The commands of the quick tool bar, in their order. A line parts those that stand in rows of
/// their own.
inline constexpr std::array QuickBarCommands = {
    static_cast<int>(wxID_NEW),           static_cast<int>(wxID_OPEN),
    static_cast<int>(wxID_SAVE),          static_cast<int>(CommandEditRuleButton),
    static_cast<int>(CommandRuleModules), static_cast<int>(CommandDatabaseModules),
    static_cast<int>(wxID_HELP),
};

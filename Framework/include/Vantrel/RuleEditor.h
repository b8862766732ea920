#pragma once

#include <Vantrel/Export.h>

class CQoxRule;

/// Shows an editor for the rule and returns when it is closed.
using RuleEditorFunction = void (*)(CQoxRule& rule);

/// Registers the editor that `CQoxRule::EditRule` shows. The program does so at start;
/// null takes it away.
VANTREL_API void SetRuleEditor(RuleEditorFunction editor);

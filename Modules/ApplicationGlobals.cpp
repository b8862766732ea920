#include "Modules/ApplicationGlobals.h"

IRuleApplication* g_pApp = nullptr;
QoxXMLDocument* g_pXmlDoc = nullptr;
bool g_bScriptRuleFile = false;
bool g_bEditInProgress = false;

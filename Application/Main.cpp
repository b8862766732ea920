#include "Application/ConfigModuleApp.h"

// The name is shared by all versions of the program, so that two of them count as one.
Platform::InstanceMark g_singleInstance("VantrelRuleBuilderApplication_X64.exe");

wxIMPLEMENT_APP(CQOXRMConfigModuleApp);

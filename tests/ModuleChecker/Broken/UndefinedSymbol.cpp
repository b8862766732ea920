// A module that was linked without something that it calls.

#include <Vantrel/ModuleInterface.h>

void FunctionThatIsNowhere(PointerArray& rules);

extern "C" QOX_MODULE_EXPORT void GetAllRules(PointerArray& rules)
{
    FunctionThatIsNowhere(rules);
}

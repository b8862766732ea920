#include <Vantrel/Export.h>

extern "C" QOX_MODULE_EXPORT int InnerNumber()
{
    return 20;
}

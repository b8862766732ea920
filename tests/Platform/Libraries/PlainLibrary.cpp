#include <Vantrel/Export.h>

extern "C" QOX_MODULE_EXPORT int PlainNumber()
{
    return 7;
}

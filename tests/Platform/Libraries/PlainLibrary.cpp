#include <Vantrel/Export.h>

extern "C" VANTREL_EXPORT int PlainNumber()
{
    return 7;
}

#include <Vantrel/Export.h>

extern "C" VANTREL_EXPORT int InnerNumber()
{
    return 20;
}

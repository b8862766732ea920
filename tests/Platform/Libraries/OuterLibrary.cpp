#include <Vantrel/Export.h>

extern "C" int InnerNumber();

extern "C" QOX_MODULE_EXPORT int OuterNumber()
{
    return InnerNumber() + 1;
}

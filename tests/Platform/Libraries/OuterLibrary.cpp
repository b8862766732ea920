#include <Vantrel/Export.h>

extern "C" int InnerNumber();

extern "C" VANTREL_EXPORT int OuterNumber()
{
    return InnerNumber() + 1;
}

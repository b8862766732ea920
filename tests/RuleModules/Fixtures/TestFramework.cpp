// Stands for the framework library where a test asks which of its exports are called.

#include "tests/RuleModules/Fixtures/CallRecord.h"

#include <Vantrel/ModuleInterface.h>

extern "C"
{
    QOX_MODULE_EXPORT void SetXMLDoc(QoxXMLDocument* /*document*/)
    {
        RecordCall("SetXMLDoc");
    }

    QOX_MODULE_EXPORT void SetXMLDoc2(QoxXMLDocument* /*document*/)
    {
        RecordCall("SetXMLDoc2");
    }
}

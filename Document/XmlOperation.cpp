#include "Document/XmlOperation.h"

#include "Modules/ApplicationGlobals.h"
#include "Modules/FrameworkLibrary.h"
#include "Modules/ModuleSet.h"

#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/QoxXml.h>

void XmlOperation::Begin()
{
    End();
    g_pXmlDoc = new QoxXMLDocument; // owned by the operation in progress; End deletes it
}

void XmlOperation::End()
{
    delete g_pXmlDoc;
    g_pXmlDoc = nullptr;
}

bool XmlOperation::TellFramework(bool scriptRulePackage)
{
    const Platform::LibraryHandle framework = g_pApp != nullptr ? g_pApp->Framework() : LoadFrameworkLibrary();
    if (framework == nullptr)
    {
        return false;
    }
    const char* const name = scriptRulePackage ? "SetXMLDoc2" : "SetXMLDoc";
    if (const auto setDocument = FindFrameworkFunction<SetXMLDocFunction>(framework, name))
    {
        setDocument(g_pXmlDoc);
    }
    return true;
}

void XmlOperation::TellModules()
{
    if (g_pApp != nullptr)
    {
        g_pApp->Modules().SetXMLDoc(g_pXmlDoc);
    }
}

#pragma once

#include <memory>

class QoxXMLNode;

/// The document of one load or save, in `g_pXmlDoc`. One runs at a time.
namespace XmlOperation
{

/// Makes a new document into `g_pXmlDoc`, in place of one that a failed load left there.
void Begin();

/// Deletes the document; `g_pXmlDoc` is null afterwards.
void End();

/// Names the document to the framework library through `SetXMLDoc` or, for a script rule
/// package, through `SetXMLDoc2`. False if the library isn't to be had; a missing export
/// is skipped.
bool TellFramework(bool scriptRulePackage);

/// Names the document to every loaded rule module, in load order.
void TellModules();

} // namespace XmlOperation

#pragma once

#include <Vantrel/RuleEditor.h>

class QoxXMLDocument;

/// The document in which rules make their elements now, or null.
QoxXMLDocument* CurrentDocument();

/// Names that document.
void SetCurrentDocument(QoxXMLDocument* document);

/// The editor that the program registered, or null.
RuleEditorFunction RegisteredRuleEditor();

#pragma once

#include <list>
#include <string>

class QoxXMLDocument;

/// What the modules for tests export beside the functions of the contract, so that a test
/// sees what was called. Looked up by name; `TestModuleEmpty` has none of them.
///
/// If the environment variable `VANTREL_TEST_MODULE_JOURNAL` names a file, each call is
/// also appended to it as a line "module export", across all modules and processes.

/// `TestModuleCallCount`: how often the export was called since the library was loaded.
using TestModuleCallCountFunction = int (*)(const char* exportName);

/// `TestModuleCalls`: the exports that were called, in order, separated by blanks.
using TestModuleCallsFunction = const char* (*)();

/// `TestModuleReset`: forgets the calls.
using TestModuleResetFunction = void (*)();

/// `TestModuleLiveRules` of a rule module: rules that it made and that still exist.
using TestModuleLiveRulesFunction = int (*)();

/// `TestModuleDocument` of a rule module: what `SetXMLDoc` gave last.
using TestModuleDocumentFunction = QoxXMLDocument* (*)();

/// `TestModuleDatabaseModules` of a rule module: what `SetDBModuleList` gave last.
using TestModuleDatabaseModulesFunction = void (*)(std::list<std::wstring>& modules);

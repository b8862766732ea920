#pragma once

#include "Help/HelpTopics.h"
#include "Platform/Library.h"

class IUserPrompt;
class ModuleSet;
class QoxXMLDocument;

/// What the parts below the windows need of the application object.
class IRuleApplication
{
public:
    virtual ~IRuleApplication() = default;

    /// The loaded rule modules and database modules.
    virtual ModuleSet& Modules() = 0;

    /// The framework library, which is told of each document that is read or written.
    virtual Platform::LibraryHandle Framework() = 0;

    /// The way to ask the user.
    virtual IUserPrompt& Prompt() = 0;

    /// Shows a topic of the help, or tells the user why it can't be shown.
    virtual void ShowHelp(HelpTopic topic) = 0;

    /// Enables or disables the commands that act on one selected rule.
    virtual void SetDocOpenState(int state) = 0;
};

/// The application object. Set only in a first instance; null before and in others.
extern IRuleApplication* g_pApp;

/// The document of the load or save in progress, else null. One runs at a time.
extern QoxXMLDocument* g_pXmlDoc;

/// The command line named a script rule package.
extern bool g_bScriptRuleFile;

/// The editor of a rule is open. Until it is closed, files that other starts of the program
/// send are refused, no second editor opens, and no document closes: the rule is in one.
extern bool g_bEditInProgress;

#pragma once

#include "Help/HelpTopics.h"
#include "Platform/Library.h"
#include "Utilities/Texts.h"

#include <span>

/// What the registration of rule modules and that of database modules differ in.
struct ModuleKind
{
    const char* section; ///< Of `ConfigModule.ini`.
    TextId title;
    std::span<const wchar_t* const> defaultFiles; ///< Offered by name, if they lie beside the program.
    bool (*isValid)(Platform::LibraryHandle library);
    HelpTopic helpTopic;
};

extern const ModuleKind RuleModules;
extern const ModuleKind DatabaseModules;

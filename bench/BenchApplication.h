#pragma once

#include "bench/BenchFolder.h"
#include "Modules/ApplicationGlobals.h"
#include "Modules/FrameworkLibrary.h"
#include "Modules/ModuleSet.h"
#include "tests/Support/SilentPrompt.h"

#include <Vantrel/PointerArray.h>

#include <string>

/// An application object with the rule modules of the stage, in `g_pApp` for as long as it
/// lives, and a folder for the files of a benchmark.
class BenchApplication : public IRuleApplication, private SilentPrompt
{
public:
    /// Loads the modules. Throws if one is missing.
    BenchApplication();
    ~BenchApplication() override;
    BenchApplication(const BenchApplication&) = delete;
    BenchApplication& operator=(const BenchApplication&) = delete;

    ModuleSet& Modules() override { return m_modules; }
    IUserPrompt& Prompt() override { return *this; }
    void ShowHelp(HelpTopic /*topic*/) override {}
    void SetDocOpenState(int /*state*/) override {}
    Platform::LibraryHandle Framework() override { return LoadFrameworkLibrary(); }

    /// Path of a file of that name in a folder of the benchmark's own.
    std::string File(const std::string& name) const { return m_folder.File(name); }

    /// Appends new rules of all modules, each in turn, until there are `count` of them.
    void MakeRules(PointerArray& rules, int count);

    /// Gives all rules back to their modules and empties the array.
    void GiveBack(PointerArray& rules) const;

private:
    BenchFolder m_folder;
    ModuleSet m_modules;
};

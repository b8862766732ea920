#pragma once

#include "Modules/ModuleSet.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A set of modules out of those that are made for tests. At the end everything that it
/// loaded leaves the process again, so that each test finds them unloaded.
class ModuleSetFixture : public testing::Test
{
protected:
    using Names = std::vector<std::wstring>;

    ~ModuleSetFixture() override;

    /// Makes these the configured rule modules, and brings the loaded ones in line. What
    /// has left goes into `m_toFree`.
    void Configure(const Names& names);

    /// Same for the database modules.
    void ConfigureDatabases(const Names& names);

    /// File names without suffix.
    Names Loaded() const { return NamesOf(m_modules.ConfigModules()); }
    Names LoadedDatabases() const { return NamesOf(m_modules.DBModules()); }

    static Names NamesOf(const ModuleSet::Handles& handles);

    /// The handle of a module for tests; null if it isn't loaded.
    static Platform::LibraryHandle HandleOf(const std::wstring& name);

    /// Calls to exports of all modules since `Configure`, as lines "module export".
    std::string Journal() const;
    void ForgetJournal() const;

    TemporaryFolder m_folder;
    ModuleSet m_modules;
    ModuleSet::Handles m_toFree;

private:
    ScopedEnvironment m_journal{ "VANTREL_TEST_MODULE_JOURNAL", m_folder.File(L"journal") };
};

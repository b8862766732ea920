#pragma once

#include "Modules/IniFile.h"
#include "Platform/Text.h"
#include "tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

/// Text of a file that was written in text mode, with line feeds for its line ends.
std::string WithLineFeeds(std::string text);

/// One line of text for each record: section, key, value, what it is commented out with
/// and its comments.
std::vector<std::string> Described(const CIniFile::Records& records);

/// An ini file in a folder of the test's own. The file isn't there at first.
class IniFileFixture : public testing::Test
{
protected:
    void Write(std::string_view bytes) const;
    std::string Bytes() const;

    /// What the file holds, with line feeds for its line ends.
    std::string Saved() const { return WithLineFeeds(Bytes()); }

    /// The records of the file. The test fails if it can't be loaded.
    CIniFile::Records Loaded() const;

    /// Loads the file and saves it unchanged.
    bool LoadAndSave() const;

    TemporaryFolder m_folder;
    std::wstring m_path = m_folder.File(L"ConfigModule.ini");
    std::string m_name = Platform::ToCodePage(m_path);
    CIniFile m_file;
};

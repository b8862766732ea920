#include "Modules/ScriptDirectory.h"

#include "Modules/ModuleConfiguration.h"
#include "Platform/Files.h"
#include "tests/Modules/IniFileFixture.h"
#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/TestFiles.h"

namespace
{

const std::wstring Separator(1, Platform::PathSeparator);

class ScriptDirectoryTest : public IniFileFixture
{
protected:
    /// Asks for the script folder. Its path is in `m_directory` then.
    bool Get()
    {
        m_directory = L"left over";
        return GetScriptDirectory(m_path, m_directory);
    }

    void Configure(const std::wstring& directory)
    {
        Write("[RULE_SCRIPT_LOCATION]\ndirectory=" + Platform::ToCodePage(directory) + "\n");
    }

    std::string DefaultLine() const { return " directory=" + Platform::ToCodePage(m_default) + "\n"; }

    std::wstring m_default = m_folder.File(L"ScriptDir");
    std::wstring m_directory;
};

} // namespace

TEST_F(ScriptDirectoryTest, WithoutAFileTheDefaultIsEnteredAndItsFolderMade)
{
    EXPECT_TRUE(Get());
    EXPECT_EQ(m_directory, m_default);
    EXPECT_TRUE(Platform::FolderExists(m_default));
    EXPECT_EQ(Saved(), " [RULE_SCRIPT_LOCATION]\n" + DefaultLine());

    EXPECT_TRUE(Get()) << "the second time it is there";
    EXPECT_EQ(m_directory, m_default);
}

TEST_F(ScriptDirectoryTest, ADefaultThatCouldNotBeReadBackIsMadeButNotEntered)
{
    for (const wchar_t* const name : { L"a[b", L"a [b]" })
    {
        const std::wstring folder = m_folder.File(name);
        ASSERT_TRUE(Platform::MakeFolder(folder));
        const std::wstring configFile = folder + Separator + L"ConfigModule.ini";
        WriteBytes(configFile, " [QOX_DEFAULT]\n DefaultHelpEditor=x\n");
        for (int time = 0; time < 2; ++time)
        {
            std::wstring directory;
            EXPECT_TRUE(GetScriptDirectory(configFile, directory));
            EXPECT_EQ(directory, folder + Separator + L"ScriptDir");
            EXPECT_TRUE(Platform::FolderExists(directory));
        }
        EXPECT_EQ(ReadBytes(configFile), " [QOX_DEFAULT]\n DefaultHelpEditor=x\n");
    }
}

TEST_F(ScriptDirectoryTest, ASectionThatIsThereGetsNoSecondHeader)
{
    Write("[RULE_SCRIPT_LOCATION]\nother=1\n[QOX_DEFAULT]\n");
    EXPECT_TRUE(Get());
    EXPECT_EQ(Saved(), " [RULE_SCRIPT_LOCATION]\n other=1\n" + DefaultLine() + " [QOX_DEFAULT]\n");
}

TEST_F(ScriptDirectoryTest, TheConfiguredFolderIsTakenAsItIs)
{
    const std::wstring folder = m_folder.File(L"Own %A% Scripts");
    ASSERT_TRUE(Platform::MakeFolder(folder));
    Configure(folder);
    const std::string before = Bytes();
    EXPECT_TRUE(Get());
    EXPECT_EQ(m_directory, folder);
    EXPECT_EQ(Bytes(), before);
    EXPECT_FALSE(Platform::PathExists(m_default));
}

TEST_F(ScriptDirectoryTest, AMissingConfiguredFolderIsMadeOneLevelOnly)
{
    Configure(m_folder.File(L"own"));
    EXPECT_TRUE(Get());
    EXPECT_TRUE(Platform::FolderExists(m_folder.File(L"own")));

    const std::wstring deep = m_folder.File(L"no") + Separator + L"such";
    Configure(deep);
    EXPECT_FALSE(Get());
    EXPECT_EQ(m_directory, deep) << "the path is told all the same";
    EXPECT_FALSE(Platform::PathExists(m_folder.File(L"no")));
}

TEST_F(ScriptDirectoryTest, AnythingThatExistsAtThePathWillDo)
{
    WriteBytes(m_folder.File(L"file"), "");
    Configure(m_folder.File(L"file"));
    EXPECT_TRUE(Get()) << "whether it is a usable folder is checked elsewhere";
}

TEST_F(ScriptDirectoryTest, AnEmptyKeyNamesNoFolder)
{
    Configure(L"");
    EXPECT_FALSE(Get());
    EXPECT_EQ(m_directory, L"");
}

TEST_F(ScriptDirectoryTest, AFileThatCanNotBeWrittenFailsUnlessTheFolderCanBeMade)
{
    Write("[open\n");
    EXPECT_TRUE(Get()) << "making the folder decides";
    EXPECT_EQ(m_directory, m_default);
    EXPECT_FALSE(Get()) << "the folder is there, and the record could not be added";
    EXPECT_EQ(m_directory, m_default);
    EXPECT_EQ(Bytes(), "[open\n");
}

TEST_F(ScriptDirectoryTest, WithoutAPathOfTheFileThereIsNoScriptFolder)
{
    m_path.clear();
    EXPECT_FALSE(Get());
}

TEST_F(ScriptDirectoryTest, TheProgramsOwnFileIsTheOneInTheDataSettingsFolder)
{
    const ScopedEnvironment dataFolder("vantrel_data_dir", m_folder.Path());
    m_path = GetModuleConfigFile();
    EXPECT_TRUE(GetScriptDirectory(m_directory));
    EXPECT_EQ(m_directory, m_folder.File(L"Settings") + Separator + L"ScriptDir");
    EXPECT_TRUE(Platform::FolderExists(m_directory));
    EXPECT_TRUE(m_file.RecordExists("directory", "RULE_SCRIPT_LOCATION", m_name = Platform::ToCodePage(m_path)));
}

#include "Platform/Files.h"
#include "Platform/Process.h"
#include "Platform/Registry.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <vector>

using namespace Platform;

namespace
{

class RegistryFileTest : public testing::Test
{
protected:
    ::TemporaryFolder m_folder;
    ScopedVariable m_variable{ "XDG_CONFIG_HOME", m_folder.Path() };
    std::wstring m_path = m_folder.File(L"vantrel/registry.reg");
};

TEST_F(RegistryFileTest, LiesInTheUsersConfigurationFolder)
{
    EXPECT_FALSE(ReadRegistryText(RegistryRoot::CurrentUser, L"A", L"b"));
    EXPECT_FALSE(FolderExists(m_folder.File(L"vantrel"))) << "reading makes nothing";
    EXPECT_TRUE(WriteRegistryText(RegistryRoot::ClassesRoot, L"\\.vrf\\", L"", L"Vantrel.Rules"));
    EXPECT_EQ(ReadBytes(m_path), "Windows Registry Editor Version 5.00\n"
                                 "\n"
                                 "[HKEY_CURRENT_USER\\Software\\Classes\\.vrf]\n"
                                 "@=\"Vantrel.Rules\"\n");
}

TEST_F(RegistryFileTest, WritingWhatIsThereAlreadyLeavesTheFileAlone)
{
    const auto inode = [this]
    {
        struct stat status = {};
        EXPECT_EQ(::stat(NativePath(m_path).c_str(), &status), 0);
        return status.st_ino;
    };
    ASSERT_TRUE(WriteRegistryText(RegistryRoot::CurrentUser, L"A", L"b", L"c"));
    const ino_t before = inode();
    EXPECT_TRUE(WriteRegistryText(RegistryRoot::CurrentUser, L"A", L"b", L"c"));
    EXPECT_EQ(inode(), before);
    EXPECT_TRUE(WriteRegistryText(RegistryRoot::CurrentUser, L"A", L"b", L"d"));
    EXPECT_NE(inode(), before) << "a change makes a new file";
}

TEST_F(RegistryFileTest, StoreThatCantBeReadIsLeftAlone)
{
    ASSERT_TRUE(MakeFolderTree(m_path));
    EXPECT_FALSE(WriteRegistryText(RegistryRoot::CurrentUser, L"A", L"b", L"c"));
    EXPECT_FALSE(DeleteRegistryKey(RegistryRoot::CurrentUser, L"A"));
    EXPECT_TRUE(FolderExists(m_path));
}

TEST_F(RegistryFileTest, FolderThatCantBeMadeFails)
{
    WriteBytes(m_folder.File(L"vantrel"), "in the way");
    EXPECT_FALSE(WriteRegistryText(RegistryRoot::CurrentUser, L"A", L"b", L"c"));
    EXPECT_EQ(ReadBytes(m_folder.File(L"vantrel")), "in the way");
}

TEST_F(RegistryFileTest, RootItselfIsNotDeleted)
{
    EXPECT_TRUE(WriteRegistryText(RegistryRoot::CurrentUser, L"A", L"b", L"c"));
    EXPECT_FALSE(DeleteRegistryKey(RegistryRoot::CurrentUser, L""));
    EXPECT_FALSE(DeleteRegistryKey(RegistryRoot::CurrentUser, L"\\\\"));
    EXPECT_EQ(ReadRegistryText(RegistryRoot::CurrentUser, L"A", L"b"), L"c");
}

TEST_F(RegistryFileTest, MachineKeysAreTheAdministrators)
{
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0777), 0);
    EXPECT_TRUE(RunWithoutPrivileges(
        []
        {
            return !MayWriteRegistryKey(RegistryRoot::LocalMachine, L"SOFTWARE") &&
                   !WriteRegistryText(RegistryRoot::LocalMachine, L"SOFTWARE\\A", L"b", L"c") &&
                   !WriteRegistryNumber(RegistryRoot::LocalMachine, L"SOFTWARE\\A", L"b", 1) &&
                   MayWriteRegistryKey(RegistryRoot::CurrentUser, L"Software");
        }));
    EXPECT_FALSE(RegistryKeyExists(RegistryRoot::LocalMachine, L"SOFTWARE\\A"));
}

TEST_F(RegistryFileTest, MachineKeysMayBeReadByAll)
{
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0777), 0);
    ASSERT_TRUE(MakeFolder(m_folder.File(L"vantrel")));
    WriteBytes(m_path, "[HKEY_LOCAL_MACHINE\\SOFTWARE\\A]\n\"b\"=\"c\"\n");
    EXPECT_TRUE(RunWithoutPrivileges(
        []
        {
            return ReadRegistryText(RegistryRoot::LocalMachine, L"software\\a", L"b") == L"c" &&
                   !DeleteRegistryKey(RegistryRoot::LocalMachine, L"SOFTWARE\\A");
        }));
    EXPECT_TRUE(RegistryKeyExists(RegistryRoot::LocalMachine, L"SOFTWARE\\A"));
}

TEST_F(RegistryFileTest, WritersInSeveralProcessesLoseNothing)
{
    constexpr int Writers = 4;
    constexpr int ValuesEach = 8;
    std::vector<pid_t> children;
    children.reserve(Writers);
    for (int writer = 0; writer < Writers; ++writer)
    {
        children.push_back(StartChild(
            [writer]
            {
                bool good = true;
                for (int value = 0; value < ValuesEach; ++value)
                {
                    const std::wstring name = std::to_wstring(writer) + L"-" + std::to_wstring(value);
                    good = WriteRegistryNumber(RegistryRoot::CurrentUser, L"Shared", name, 1) && good;
                }
                return good ? 0 : 1;
            }));
    }
    for (const pid_t child : children)
    {
        EXPECT_EQ(WaitForChild(child), 0);
    }
    EXPECT_EQ(RegistryValueNames(RegistryRoot::CurrentUser, L"Shared").size(), std::size_t(Writers * ValuesEach));
}

} // namespace

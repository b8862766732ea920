#include "Platform/Automation.h"

#include "Platform/Process.h"
#include "Platform/Registry.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace Platform;

namespace
{

class AutomationTest : public testing::Test
{
protected:
    static std::wstring Default(const std::wstring& key)
    {
        return ReadRegistryText(RegistryRoot::ClassesRoot, key, L"").value_or(L"(none)");
    }

    static bool Exists(const std::wstring& key) { return RegistryKeyExists(RegistryRoot::ClassesRoot, key); }

    ::TemporaryFolder m_folder;
    ScopedVariable m_variable{ "XDG_CONFIG_HOME", m_folder.Path() };
    const std::wstring m_class = L"CLSID\\{74FAF44C-B6AF-493B-A9D9-AED17BA7FED5}";
    const std::wstring m_library = L"TypeLib\\{092D31A2-F72E-457D-997F-0FE3E4D26334}";
};

TEST_F(AutomationTest, IdentifiersAreThoseThatOthersKnow)
{
    EXPECT_STREQ(DocumentClassId, L"{74FAF44C-B6AF-493B-A9D9-AED17BA7FED5}");
    EXPECT_STREQ(TypeLibraryId, L"{092D31A2-F72E-457D-997F-0FE3E4D26334}");
}

TEST_F(AutomationTest, ClassLeadsToTheProgramAndBack)
{
    EXPECT_TRUE(RegisterDocumentClass(L"Vantrel.Document", L"Rule Document"));
    EXPECT_TRUE(RegisterDocumentClass(L"Vantrel.Document", L"Rule Document"));
    EXPECT_EQ(Default(m_class), L"Rule Document");
    EXPECT_EQ(Default(m_class + L"\\LocalServer32"), ProgramPath());
    EXPECT_EQ(Default(m_class + L"\\ProgId"), L"Vantrel.Document");
    EXPECT_EQ(Default(L"Vantrel.Document"), L"Rule Document");
    EXPECT_EQ(Default(L"Vantrel.Document\\CLSID"), DocumentClassId);
    EXPECT_TRUE(UnregisterDocumentClass(L"Vantrel.Document"));
    EXPECT_FALSE(Exists(m_class));
    EXPECT_FALSE(Exists(L"Vantrel.Document"));
    EXPECT_TRUE(UnregisterDocumentClass(L"Vantrel.Document"));
}

TEST_F(AutomationTest, TypeLibraryIsRegisteredByVersion)
{
    EXPECT_TRUE(RegisterProgramTypeLibrary());
    EXPECT_NE(Default(m_library + L"\\1.0"), L"(none)");
    EXPECT_EQ(Default(m_library + L"\\1.0\\0\\win64"), ProgramPath());
    EXPECT_EQ(Default(m_library + L"\\1.0\\FLAGS"), L"0");
    EXPECT_EQ(Default(m_library + L"\\1.0\\HELPDIR"), ProgramFolder());
    EXPECT_TRUE(UnregisterProgramTypeLibrary());
    EXPECT_FALSE(Exists(m_library));
    EXPECT_TRUE(UnregisterProgramTypeLibrary());
}

TEST_F(AutomationTest, OtherVersionsOfTheTypeLibraryStay)
{
    ASSERT_TRUE(WriteRegistryText(RegistryRoot::ClassesRoot, m_library + L"\\2.0", L"", L"newer"));
    EXPECT_TRUE(RegisterProgramTypeLibrary());
    EXPECT_TRUE(UnregisterProgramTypeLibrary());
    EXPECT_FALSE(Exists(m_library + L"\\1.0"));
    EXPECT_EQ(Default(m_library + L"\\2.0"), L"newer");
}

TEST_F(AutomationTest, FileTypeOpensWithTheProgram)
{
    EXPECT_TRUE(RegisterFileType(L".vrf", L"Vantrel.Document", L"Rule Document"));
    EXPECT_EQ(Default(L".vrf"), L"Vantrel.Document");
    EXPECT_EQ(Default(L"Vantrel.Document"), L"Rule Document");
    EXPECT_EQ(Default(L"Vantrel.Document\\shell\\open\\command"), L"\"" + ProgramPath() + L"\" \"%1\"");
    EXPECT_TRUE(UnregisterFileType(L".vrf", L"Vantrel.Document"));
    EXPECT_FALSE(Exists(L".vrf"));
    EXPECT_FALSE(Exists(L"Vantrel.Document"));
}

TEST_F(AutomationTest, ExtensionThatWentToAnotherProgramStaysThere)
{
    EXPECT_TRUE(RegisterFileType(L".vrf", L"Vantrel.Document", L"Rule Document"));
    ASSERT_TRUE(WriteRegistryText(RegistryRoot::ClassesRoot, L".vrf", L"", L"Other.Document"));
    EXPECT_TRUE(UnregisterFileType(L".vrf", L"Vantrel.Document"));
    EXPECT_EQ(Default(L".vrf"), L"Other.Document");
}

TEST_F(AutomationTest, ClassAndFileTypeOfOneProgramIdGoOneByOne)
{
    EXPECT_TRUE(RegisterDocumentClass(L"Vantrel.Document", L"Rule Document"));
    EXPECT_TRUE(RegisterFileType(L".vrf", L"Vantrel.Document", L"Rule Document"));
    EXPECT_TRUE(UnregisterFileType(L".vrf", L"Vantrel.Document"));
    EXPECT_EQ(Default(L"Vantrel.Document\\CLSID"), DocumentClassId);
    EXPECT_TRUE(UnregisterDocumentClass(L"Vantrel.Document"));
    EXPECT_FALSE(Exists(L"Vantrel.Document"));
}

TEST_F(AutomationTest, EmptyNamesAreRefused)
{
    ASSERT_TRUE(WriteRegistryText(RegistryRoot::ClassesRoot, L"Other", L"", L"x"));
    EXPECT_FALSE(RegisterDocumentClass(L"", L"x"));
    EXPECT_FALSE(UnregisterDocumentClass(L"\\"));
    EXPECT_FALSE(RegisterFileType(L"", L"x", L"x"));
    EXPECT_FALSE(UnregisterFileType(L"", L""));
    EXPECT_TRUE(Exists(L"Other"));
}

} // namespace

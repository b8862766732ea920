#include "Platform/Registry.h"

#include "Platform/Text.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace Platform;

namespace
{

/// Works in a key of its own that is removed afterwards.
class RegistryTest : public testing::Test
{
protected:
    RegistryTest() { DeleteRegistryKey(Root, m_key); }
    ~RegistryTest() override { DeleteRegistryKey(Root, m_key); }

    static constexpr RegistryRoot Root = RegistryRoot::CurrentUser;
    const std::wstring m_key = L"Software\\VantrelTests\\" + Utf8ToWide(CurrentTest());

private:
    static const char* CurrentTest() { return testing::UnitTest::GetInstance()->current_test_info()->name(); }
};

TEST_F(RegistryTest, GivesBackWhatWasWritten)
{
    EXPECT_TRUE(WriteRegistryText(Root, m_key, L"Editor", L"C:\\Programs\\\"a\" b.exe"));
    EXPECT_TRUE(WriteRegistryNumber(Root, m_key, L"Language", 0xFEDCBA98u));
    EXPECT_TRUE(WriteRegistryText(Root, m_key, L"", L"default \u65E5\U0001F600"));
    EXPECT_EQ(ReadRegistryText(Root, m_key, L"Editor"), L"C:\\Programs\\\"a\" b.exe");
    EXPECT_EQ(ReadRegistryNumber(Root, m_key, L"Language"), 0xFEDCBA98u);
    EXPECT_EQ(ReadRegistryText(Root, m_key, L""), L"default \u65E5\U0001F600");
}

TEST_F(RegistryTest, TextWithLineBreaksAndNoTextComeBack)
{
    EXPECT_TRUE(WriteRegistryText(Root, m_key, L"lines", L"one\r\ntwo\tthree"));
    EXPECT_TRUE(WriteRegistryText(Root, m_key, L"none", L""));
    EXPECT_EQ(ReadRegistryText(Root, m_key, L"lines"), L"one\r\ntwo\tthree");
    EXPECT_EQ(ReadRegistryText(Root, m_key, L"none"), L"");
}

TEST_F(RegistryTest, NamesAreComparedWithoutCase)
{
    EXPECT_TRUE(WriteRegistryText(Root, m_key + L"\\Sub", L"Name", L"1"));
    EXPECT_TRUE(WriteRegistryText(Root, m_key + L"\\sUB", L"nAME", L"2"));
    EXPECT_EQ(ReadRegistryText(Root, m_key + L"\\SUB", L"NAME"), L"2");
    EXPECT_EQ(RegistrySubkeys(Root, m_key).size(), 1u);
    EXPECT_EQ(RegistryValueNames(Root, m_key + L"\\Sub").size(), 1u);
}

TEST_F(RegistryTest, MissingValueAndOtherTypeGiveNothing)
{
    EXPECT_FALSE(ReadRegistryText(Root, m_key, L"a"));
    EXPECT_TRUE(WriteRegistryText(Root, m_key, L"text", L"42"));
    EXPECT_TRUE(WriteRegistryNumber(Root, m_key, L"number", 42));
    EXPECT_FALSE(ReadRegistryNumber(Root, m_key, L"text"));
    EXPECT_FALSE(ReadRegistryText(Root, m_key, L"number"));
    EXPECT_FALSE(ReadRegistryText(Root, m_key, L"a"));
    EXPECT_FALSE(ReadRegistryText(Root, m_key, L""));
}

TEST_F(RegistryTest, ValueTakesTheTypeOfTheLastWriting)
{
    EXPECT_TRUE(WriteRegistryText(Root, m_key, L"a", L"1"));
    EXPECT_TRUE(WriteRegistryNumber(Root, m_key, L"a", 2));
    EXPECT_EQ(ReadRegistryNumber(Root, m_key, L"a"), 2u);
    EXPECT_FALSE(ReadRegistryText(Root, m_key, L"a"));
}

TEST_F(RegistryTest, KeyExistsWithWhatLiesAboveIt)
{
    EXPECT_FALSE(RegistryKeyExists(Root, m_key));
    EXPECT_TRUE(WriteRegistryText(Root, m_key + L"\\a\\b", L"", L"x"));
    EXPECT_TRUE(RegistryKeyExists(Root, m_key));
    EXPECT_TRUE(RegistryKeyExists(Root, m_key + L"\\a"));
    EXPECT_TRUE(RegistryKeyExists(Root, m_key + L"\\A\\B"));
    EXPECT_FALSE(RegistryKeyExists(Root, m_key + L"\\a\\bb"));
    EXPECT_FALSE(RegistryKeyExists(Root, m_key + L"\\b"));
}

TEST_F(RegistryTest, ListsSubkeysAndValues)
{
    EXPECT_TRUE(RegistrySubkeys(Root, m_key).empty());
    EXPECT_TRUE(WriteRegistryText(Root, m_key + L"\\one\\deep", L"", L"x"));
    EXPECT_TRUE(WriteRegistryText(Root, m_key + L"\\two", L"v", L"x"));
    EXPECT_TRUE(WriteRegistryNumber(Root, m_key + L"\\two", L"n", 1));
    EXPECT_EQ(RegistrySubkeys(Root, m_key), (std::vector<std::wstring>{ L"one", L"two" }));
    auto names = RegistryValueNames(Root, m_key + L"\\two");
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::wstring>{ L"n", L"v" }));
}

TEST_F(RegistryTest, DeletingTakesWhatLiesBelowAndNothingElse)
{
    EXPECT_TRUE(WriteRegistryText(Root, m_key + L"\\a\\b", L"", L"x"));
    EXPECT_TRUE(WriteRegistryText(Root, m_key + L"\\ab", L"", L"y"));
    EXPECT_TRUE(DeleteRegistryKey(Root, m_key + L"\\a"));
    EXPECT_FALSE(RegistryKeyExists(Root, m_key + L"\\a"));
    EXPECT_EQ(ReadRegistryText(Root, m_key + L"\\ab", L""), L"y");
    EXPECT_TRUE(DeleteRegistryKey(Root, m_key + L"\\a"));
}

TEST_F(RegistryTest, ClassRootHasThePerUserClasses)
{
    EXPECT_TRUE(WriteRegistryText(RegistryRoot::ClassesRoot, L"VantrelTests.Class", L"", L"x"));
    EXPECT_EQ(ReadRegistryText(Root, L"Software\\Classes\\VantrelTests.Class", L""), L"x");
    EXPECT_TRUE(DeleteRegistryKey(RegistryRoot::ClassesRoot, L"VantrelTests.Class"));
    EXPECT_FALSE(RegistryKeyExists(Root, L"Software\\Classes\\VantrelTests.Class"));
}

TEST_F(RegistryTest, UsersOwnKeysMayBeWritten)
{
    EXPECT_TRUE(MayWriteRegistryKey(Root, L"Software"));
}

} // namespace

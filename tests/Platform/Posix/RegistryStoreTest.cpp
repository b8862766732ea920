#include "Platform/Posix/RegistryStore.h"

#include <gtest/gtest.h>
#include <random>

using Platform::Posix::RegistryStore;

namespace
{

constexpr const char* Sample = "Windows Registry Editor Version 5.00\n"
                               "; written by hand\n"
                               "\n"
                               "[HKEY_CURRENT_USER\\Software\\Vantrel]\n"
                               "@=\"default\"\n"
                               "\"path\"=\"C:\\\\a \\\"b\\\"\"\n"
                               "\"n\"=dword:0000002a\n"
                               "\"bytes\"=hex:01,02,\\\n"
                               "  03,04\n"
                               "no value at all\n"
                               "\n"
                               "[HKEY_CURRENT_USER\\Software\\Vantrel\\Sub]\n"
                               "\"lines\"=hex(1):61,00,0a,00,\\\n"
                               "  62,00,00,00\n";

constexpr const wchar_t* Key = L"HKEY_CURRENT_USER\\Software\\Vantrel";

TEST(RegistryStoreTest, ReadsValuesOfAllKinds)
{
    const RegistryStore store(Sample);
    EXPECT_EQ(store.Text(Key, L""), L"default");
    EXPECT_EQ(store.Text(Key, L"path"), L"C:\\a \"b\"");
    EXPECT_EQ(store.Number(Key, L"n"), 42u);
    EXPECT_FALSE(store.Text(Key, L"bytes"));
    EXPECT_EQ(store.Text(std::wstring(Key) + L"\\Sub", L"lines"), L"a\nb");
    EXPECT_EQ(store.ValueNames(Key), (std::vector<std::wstring>{ L"", L"path", L"n", L"bytes" }));
}

TEST(RegistryStoreTest, UnchangedStoreIsWrittenAsItWasRead)
{
    EXPECT_EQ(RegistryStore(Sample).Bytes(), Sample);
}

TEST(RegistryStoreTest, ChangingOneValueKeepsAllOtherLines)
{
    RegistryStore store(Sample);
    EXPECT_TRUE(store.SetNumber(Key, L"N", 43));
    EXPECT_TRUE(store.SetText(Key, L"new", L"x"));
    std::string expected = Sample;
    expected.replace(expected.find("\"n\"=dword:0000002a"), 18, "\"N\"=dword:0000002b");
    const std::string before = "no value at all\n";
    expected.insert(expected.find(before) + before.size(), "\"new\"=\"x\"\n");
    EXPECT_EQ(store.Bytes(), expected);
}

TEST(RegistryStoreTest, NewStoreHasTheHeaderOfItsFormat)
{
    RegistryStore store("");
    EXPECT_TRUE(store.SetText(Key, L"", L"\u00E9"));
    EXPECT_TRUE(store.SetText(Key, L"a\"b", L"1"));
    EXPECT_TRUE(store.SetNumber(std::wstring(Key) + L"\\Sub", L"n", 255));
    EXPECT_EQ(store.Bytes(), "Windows Registry Editor Version 5.00\n"
                             "\n"
                             "[HKEY_CURRENT_USER\\Software\\Vantrel]\n"
                             "@=\"\xC3\xA9\"\n"
                             "\"a\\\"b\"=\"1\"\n"
                             "\n"
                             "[HKEY_CURRENT_USER\\Software\\Vantrel\\Sub]\n"
                             "\"n\"=dword:000000ff\n");
}

TEST(RegistryStoreTest, TextThatALineCantHoldIsWrittenAsBytes)
{
    RegistryStore store("");
    EXPECT_TRUE(store.SetText(Key, L"a", L"1\n\U0001F600"));
    EXPECT_NE(store.Bytes().find("\"a\"=hex(1):31,00,0a,00,3d,d8,00,de,00,00\n"), std::string::npos);
    EXPECT_EQ(RegistryStore(store.Bytes()).Text(Key, L"a"), L"1\n\U0001F600");
}

TEST(RegistryStoreTest, NamesWithLineBreaksAreRefused)
{
    RegistryStore store(Sample);
    EXPECT_FALSE(store.SetText(Key, L"a\nb", L"x"));
    EXPECT_FALSE(store.SetText(L"HKEY_CURRENT_USER\\a\nb", L"", L"x"));
    EXPECT_EQ(store.Bytes(), Sample);
}

TEST(RegistryStoreTest, ReadsWhatEditorsExport)
{
    const std::string narrow = "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n\"v\"=\"1\"\r\n";
    EXPECT_EQ(RegistryStore(narrow).Text(L"hkey_current_user\\a", L"V"), L"1");
    std::string wide = "\xFF\xFE";
    for (const char character : narrow)
    {
        wide += character;
        wide += '\0';
    }
    EXPECT_EQ(RegistryStore(wide).Text(L"HKEY_CURRENT_USER\\A", L"v"), L"1");
    EXPECT_EQ(RegistryStore("\xEF\xBB\xBF" + narrow).Text(L"HKEY_CURRENT_USER\\A", L"v"), L"1");
}

TEST(RegistryStoreTest, LastOfSeveralValuesCounts)
{
    RegistryStore store("[HKEY_CURRENT_USER\\A]\n\"v\"=\"1\"\n\"V\"=\"2\"\n[HKEY_CURRENT_USER\\a]\n\"v\"=\"3\"\n");
    EXPECT_EQ(store.Text(L"HKEY_CURRENT_USER\\A", L"v"), L"3");
    EXPECT_TRUE(store.SetText(L"HKEY_CURRENT_USER\\A", L"v", L"4"));
    EXPECT_EQ(store.Text(L"HKEY_CURRENT_USER\\A", L"v"), L"4");
    store.DeleteKey(L"HKEY_CURRENT_USER\\A");
    EXPECT_FALSE(store.HasKey(L"HKEY_CURRENT_USER\\A"));
}

struct BadLine
{
    const char* name;
    const char* line;
};

class RegistryStoreBadLineTest : public testing::TestWithParam<BadLine>
{
};

TEST_P(RegistryStoreBadLineTest, IsKeptAndDisturbsNothing)
{
    const std::string before = "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\A]\n\"x\"=\"1\"\n";
    const std::string after = "\n[HKEY_CURRENT_USER\\B]\n\"y\"=\"2\"\n";
    RegistryStore store(before + GetParam().line + "\n" + after);
    EXPECT_EQ(store.Text(L"HKEY_CURRENT_USER\\A", L"x"), L"1");
    EXPECT_EQ(store.Text(L"HKEY_CURRENT_USER\\B", L"y"), L"2");
    EXPECT_FALSE(store.Text(L"HKEY_CURRENT_USER\\A", L"bad"));
    EXPECT_FALSE(store.Number(L"HKEY_CURRENT_USER\\A", L"bad"));
    EXPECT_TRUE(store.SetText(L"HKEY_CURRENT_USER\\B", L"z", L"3"));
    EXPECT_NE(store.Bytes().find(std::string("\n") + GetParam().line + "\n"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, RegistryStoreBadLineTest,
    testing::Values(BadLine{ "OpenQuote", "\"bad\"=\"no end" }, BadLine{ "OpenName", "\"bad" },
                    BadLine{ "NoValue", "\"bad\"" }, BadLine{ "EscapeAtEnd", "\"bad\"=\"\\" },
                    BadLine{ "TextBehindText", "\"bad\"=\"a\" b" },
                    BadLine{ "NumberTooLong", "\"bad\"=dword:123456789" }, BadLine{ "NumberEmpty", "\"bad\"=dword:" },
                    BadLine{ "NumberNoDigits", "\"bad\"=dword:xyz" }, BadLine{ "UnknownKind", "\"bad\"=float:1" },
                    BadLine{ "OddBytes", "\"bad\"=hex(1):zz" },
                    BadLine{ "BytesThatGoOnIntoNothing", "\"bad\"=hex:01,\\" }, BadLine{ "Removal", "\"bad\"=-" },
                    BadLine{ "Bytes", "\x01\xFF\x80" }, BadLine{ "OpenBracket", "[HKEY_CURRENT_USER\\C" },
                    BadLine{ "EmptyKey", "[]" }, BadLine{ "KeyRemoval", "[-HKEY_CURRENT_USER\\A]" }),
    [](const testing::TestParamInfo<BadLine>& row) { return row.param.name; });

TEST(RegistryStoreTest, ValueThatBreaksOffSwallowsNothing)
{
    const RegistryStore store(
        "[HKEY_CURRENT_USER\\A]\n\"a\"=hex:01,\\\n\"b\"=\"1\"\n\"c\"=hex:01,\\\n[HKEY_CURRENT_USER\\B]\n"
        "\"d\"=\"2\"\n");
    EXPECT_EQ(store.Text(L"HKEY_CURRENT_USER\\A", L"b"), L"1");
    EXPECT_EQ(store.Text(L"HKEY_CURRENT_USER\\B", L"d"), L"2");
}

TEST(RegistryStoreTest, FileCutAtEveryByteIsReadAndWritten)
{
    const std::string whole = Sample;
    for (std::size_t size = 0; size <= whole.size(); ++size)
    {
        RegistryStore store(whole.substr(0, size));
        ASSERT_TRUE(store.SetText(L"HKEY_CURRENT_USER\\Z", L"z", L"1"));
        ASSERT_EQ(RegistryStore(store.Bytes()).Text(L"HKEY_CURRENT_USER\\Z", L"z"), L"1") << size;
    }
}

TEST(RegistryStoreTest, AnyBytesAreReadWithoutHarm)
{
    std::mt19937 random(1);
    constexpr std::string_view Alphabet = "[]\"\\=@-:,;hexdword()01af \t\r\n\xFF\xC3\xA9";
    for (int round = 0; round < 3000; ++round)
    {
        std::string bytes(random() % 80, '\0');
        for (char& byte : bytes)
        {
            byte = Alphabet[random() % Alphabet.size()];
        }
        RegistryStore store(bytes);
        const std::string written = store.Bytes();
        ASSERT_EQ(RegistryStore(written).Bytes(), written) << bytes;
    }
}

} // namespace

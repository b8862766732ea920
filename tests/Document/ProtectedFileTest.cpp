#include "Document/RuleDocument.h"
#include "Platform/Text.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/ScopedLocale.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace
{

/// Files that another program has written, or reads, by the rules of the format.
class ProtectedFileTest : public testing::Test
{
protected:
    bool RunScript(const std::string& command, const std::wstring& password)
    {
        WriteBytes(passwordFile, Platform::WideToUtf8(password));
        const std::string line = "'" VANTREL_PYTHON "' '" VANTREL_PROTECTED_FILE_SCRIPT "' " + command + " '" +
                                 Platform::WideToUtf8(path) + "' '" + Platform::WideToUtf8(passwordFile) + "'";
        return std::system(line.c_str()) == 0;
    }

    void OpenAndTakeAllRules(RuleDocument& document, const std::wstring& file)
    {
        ASSERT_EQ(document.Open(file), RuleDocument::OpenFailure::None);
        EXPECT_TRUE(document.IsPasswordProtected());
        EXPECT_TRUE(application.prompt.texts.empty()) << "the digest is right";
        PointerArray rules;
        document.Header().GetRules(rules);
        ASSERT_EQ(rules.GetSize(), 3);
        for (CQoxRule* const rule : rules)
        {
            document.Rules().Append(rule);
        }
    }

    TestApplication application;
    TemporaryFolder folder;
    std::wstring path = folder.File(L"rules.vrf");
    std::wstring passwordFile = folder.File(L"password");
};

std::vector<std::wstring> Passwords()
{
    std::wstring counted;
    for (int count = 0; count < 188; ++count)
    {
        counted += static_cast<wchar_t>(L'!' + count % 94);
    }
    return {
        L"", L"a", counted.substr(0, 94), counted, L" blanks ", L"R\u00E8gle", L"\u65E5\u672C\u8A9E", L"\U0001F600"
    };
}

} // namespace

TEST_F(ProtectedFileTest, AFileOfAnotherWriterIsSavedWithItsPasswordAndReadBackByAnotherReader)
{
    const ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.IsTaken());
    for (const std::wstring& password : Passwords())
    {
        SCOPED_TRACE(Platform::WideToUtf8(password));
        ASSERT_TRUE(RunScript("write", password));
        RuleDocument document(&application.prompt);
        OpenAndTakeAllRules(document, path);
        application.prompt.password = password + L"x";
        EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::Told);
        EXPECT_EQ(application.prompt.texts.size(), 1u);
        application.prompt.texts.clear();
        application.prompt.password = password;
        EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
        EXPECT_TRUE(application.prompt.texts.empty());
        EXPECT_TRUE(RunScript("check", password));
        EXPECT_FALSE(RunScript("check 2>/dev/null", password + L"x")) << "the check can fail";

        RuleDocument again(&application.prompt);
        const std::wstring copy = folder.File(L"copy.vrf"); // the document still holds the file
        WriteBytes(copy, ReadBytes(path));
        OpenAndTakeAllRules(again, copy);
    }
}

TEST_F(ProtectedFileTest, PasswordsAroundTheEndsOfLinesAreWrittenAsAnotherReaderReadsThem)
{
    const ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.IsTaken());
    for (const std::size_t length : { 27u, 28u, 55u, 56u, 113u, 114u, 187u })
    {
        const std::wstring password(length, L'p');
        ASSERT_TRUE(RunScript("write", L"first"));
        RuleDocument document(&application.prompt);
        OpenAndTakeAllRules(document, path);
        ASSERT_TRUE(document.SetDocPassword(password));
        EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
        EXPECT_TRUE(RunScript("check", password)) << length;
    }
}

TEST_F(ProtectedFileTest, WhatACodePageLacksStandsInTheFileAsAnotherCharacter)
{
    const ScopedLocale locale("C");
    ASSERT_TRUE(RunScript("write", L"a"));
    RuleDocument document(&application.prompt);
    OpenAndTakeAllRules(document, path);
    ASSERT_TRUE(document.SetDocPassword(L"p\u00E8\u65E5"));
    EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_TRUE(RunScript("check", L"p??"));
}

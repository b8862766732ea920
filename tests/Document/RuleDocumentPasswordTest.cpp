#include "Document/RuleDocument.h"
#include "Platform/Files.h"
#include "Platform/HeldFile.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/ScopedLocale.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/VantrelLog.h>

#include <gtest/gtest.h>

#include <memory>

namespace
{

using Failure = RuleDocument::SaveFailure;

class RuleDocumentPasswordTest : public testing::Test
{
protected:
    RuleDocumentPasswordTest()
    {
        rule.m_strRuleName = L"Alpha";
        rule.m_strRuleModule = VSTARuleMark;
    }

    /// Saves a document with one rule and a password, and forgets it.
    std::string MakeProtectedFile(const std::wstring& password = L"secret")
    {
        RuleDocument document(&prompt);
        document.Rules().Append(&rule);
        EXPECT_TRUE(document.SetDocPassword(password));
        EXPECT_EQ(document.Save(path), Failure::None);
        EXPECT_TRUE(prompt.passwordPurposes.empty()) << "who has set a password isn't asked for it";
        return ReadBytes(path);
    }

    /// A copy of the file, which the document itself still holds.
    std::wstring Copy() const
    {
        std::wstring copy = folder.File(L"copy.vrf");
        WriteBytes(copy, ReadBytes(path));
        return copy;
    }

    /// What another user gets who opens the file: null while the document holds it.
    std::unique_ptr<Platform::HeldFile> Others() const
    {
        Platform::FileCause cause = Platform::FileCause::None;
        return Platform::HeldFile::Open(path, cause);
    }

    TestApplication application;
    RecordingPrompt& prompt = application.prompt;
    TemporaryFolder folder;
    std::wstring path = folder.File(L"rules.vrf");
    ConcreteQOXRule rule;
};

const std::vector<std::wstring> WrongPasswordBox = { L"Rule file is password protected...Wrong Password..." };

} // namespace

TEST_F(RuleDocumentPasswordTest, AFileWithoutAPasswordIsSavedWithoutAsking)
{
    RuleDocument document(&prompt);
    EXPECT_FALSE(document.HasPassword());
    EXPECT_TRUE(document.AskPassword());
    EXPECT_EQ(document.Save(path), Failure::None);
    EXPECT_TRUE(prompt.passwordPurposes.empty());
    EXPECT_FALSE(document.IsPasswordProtected());
}

TEST_F(RuleDocumentPasswordTest, APasswordGoesIntoTheFileWithTheNextSave)
{
    RuleDocument document(&prompt);
    document.Rules().Append(&rule);
    EXPECT_TRUE(document.SetDocPassword(L"secret"));
    EXPECT_TRUE(document.HasPassword());
    EXPECT_FALSE(document.IsPasswordProtected());
    EXPECT_FALSE(Platform::PathExists(path));
    EXPECT_EQ(document.Save(path), Failure::None);
    EXPECT_TRUE(document.IsPasswordProtected());
    RuleDocument again(&prompt);
    ASSERT_EQ(again.Open(Copy()), RuleDocument::OpenFailure::None);
    EXPECT_TRUE(again.IsPasswordProtected());
    EXPECT_TRUE(again.HasPassword());
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(RuleDocumentPasswordTest, AWrongPasswordIsToldAndTheFileStays)
{
    const std::string bytes = MakeProtectedFile();
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    for (const wchar_t* const wrong : { L"", L"Secret", L"secret ", L"secre" })
    {
        prompt.texts.clear();
        prompt.password = wrong;
        EXPECT_EQ(document.Save(path), Failure::Told);
        EXPECT_EQ(prompt.texts, WrongPasswordBox);
    }
    EXPECT_EQ(ReadBytes(path), bytes);
}

TEST_F(RuleDocumentPasswordTest, WhoGivesNoPasswordIsToldNothingAndTheFileStays)
{
    const std::string bytes = MakeProtectedFile();
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(document.Save(path), Failure::Told);
    EXPECT_TRUE(prompt.texts.empty());
    EXPECT_EQ(ReadBytes(path), bytes);
}

TEST_F(RuleDocumentPasswordTest, EachSaveAsksUntilThePasswordWasGivenOnce)
{
    MakeProtectedFile();
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    document.Rules().Append(&rule);
    EXPECT_EQ(document.Save(path), Failure::Told);
    prompt.password = L"wrong";
    EXPECT_EQ(document.Save(path), Failure::Told);
    prompt.password = L"secret";
    EXPECT_EQ(document.Save(path), Failure::None);
    EXPECT_EQ(prompt.passwordPurposes, std::vector<PasswordPurpose>(3, PasswordPurpose::Save));
    prompt.password.reset();
    EXPECT_EQ(document.Save(path), Failure::None);
    EXPECT_EQ(prompt.passwordPurposes.size(), 3u);
    RuleDocument again(&prompt);
    ASSERT_EQ(again.Open(Copy()), RuleDocument::OpenFailure::None);
    EXPECT_TRUE(again.IsPasswordProtected()) << "the file keeps its password";
}

TEST_F(RuleDocumentPasswordTest, ASaveThatIsRefusedLeavesTheFileToOthersUntilTheNext)
{
    MakeProtectedFile();
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    document.Rules().Append(&rule);
    EXPECT_EQ(Others(), nullptr);
    EXPECT_EQ(document.Save(path), Failure::Told);
    EXPECT_NE(Others(), nullptr);
    prompt.password = L"secret";
    EXPECT_EQ(document.Save(path), Failure::None);
    EXPECT_EQ(Others(), nullptr);
}

TEST_F(RuleDocumentPasswordTest, WhatSomeoneElseHasTakenSinceARefusedSaveIsNotReplaced)
{
    MakeProtectedFile();
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(document.Save(path), Failure::Told);
    const std::string theirs = "<Lumeq Unit=\"3\"/>";
    WriteBytes(path, theirs);
    const auto others = Others();
    ASSERT_NE(others, nullptr);
    prompt.password = L"secret";
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    EXPECT_EQ(document.Save(path), Failure::None);
    CVantrelLog::CloseLogFile();
    EXPECT_EQ(ReadBytes(path), theirs);
    EXPECT_NE(ReadBytes(log).find("could not be written\n"), std::string::npos);
}

TEST_F(RuleDocumentPasswordTest, SavingUnderAnotherNameAsksToo)
{
    MakeProtectedFile();
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    const std::wstring other = folder.File(L"other.vrf");
    EXPECT_EQ(document.Save(other), Failure::Told);
    EXPECT_FALSE(Platform::PathExists(other));
    EXPECT_EQ(document.OpenPath(), path);
}

TEST_F(RuleDocumentPasswordTest, APlaceThatCannotBeWrittenIsRefusedWithoutAsking)
{
    MakeProtectedFile();
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(document.Save(folder.File(L"missing") + Platform::PathSeparator + L"rules.vrf"), Failure::NotWritable);
    EXPECT_TRUE(prompt.passwordPurposes.empty());
}

TEST_F(RuleDocumentPasswordTest, WithNobodyToAskAProtectedFileIsNotSaved)
{
    const std::string bytes = MakeProtectedFile();
    RuleDocument document;
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(document.Save(path), Failure::Told);
    EXPECT_EQ(ReadBytes(path), bytes);
}

TEST_F(RuleDocumentPasswordTest, AnEmptyPasswordIsAPassword)
{
    MakeProtectedFile(L"");
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_TRUE(document.IsPasswordProtected());
    prompt.password = L"x";
    EXPECT_EQ(document.Save(path), Failure::Told);
    prompt.password = L"";
    EXPECT_EQ(document.Save(path), Failure::None);
}

TEST_F(RuleDocumentPasswordTest, APasswordThatIsTooLongIsRefusedWithAWordBeforeAnythingIsStored)
{
    RuleDocument document(&prompt);
    EXPECT_FALSE(document.SetDocPassword(std::wstring(189, L'k')));
    ASSERT_EQ(prompt.texts.size(), 1u);
    EXPECT_NE(prompt.texts[0].find(L"188"), std::wstring::npos);
    EXPECT_FALSE(document.HasPassword());
    EXPECT_EQ(document.Save(path), Failure::None);
    EXPECT_EQ(ReadBytes(path).find("Password"), std::string::npos);
    EXPECT_TRUE(document.SetDocPassword(std::wstring(188, L'k')));
}

TEST_F(RuleDocumentPasswordTest, APasswordOutsideTheCodePageDoesNotMatchAfterARoundTrip)
{
    const ScopedLocale locale("C");
    MakeProtectedFile(L"\u65E5");
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    prompt.password = L"\u65E5";
    EXPECT_EQ(document.Save(path), Failure::Told);
    EXPECT_EQ(prompt.texts, WrongPasswordBox);
}

TEST_F(RuleDocumentPasswordTest, TheProtectionIsLostWithTheLastRule)
{
    MakeProtectedFile();
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    prompt.password = L"secret";
    EXPECT_EQ(document.Save(path), Failure::None); // no rule was taken into its list
    RuleDocument again(&prompt);
    ASSERT_EQ(again.Open(Copy()), RuleDocument::OpenFailure::None);
    EXPECT_FALSE(again.IsPasswordProtected());
}

TEST_F(RuleDocumentPasswordTest, ASaveAfterRulesWereChangedByHandWritesARightDigest)
{
    std::string bytes = MakeProtectedFile();
    bytes.replace(bytes.find("Alpha"), 5, "Omega");
    WriteBytes(path, bytes);
    RuleDocument document(&prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(prompt.texts, std::vector<std::wstring>{ L"Rule File is modifed..." });
    prompt.texts.clear();
    CQoxRule* changed = nullptr;
    document.Header().FindRule(document.Header().TreeRoot(), 1, changed);
    ASSERT_NE(changed, nullptr);
    document.Rules().Append(changed);
    prompt.password = L"secret";
    EXPECT_TRUE(document.IsFileBehind());
    EXPECT_EQ(document.Save(path), Failure::None);
    EXPECT_FALSE(document.IsFileBehind());
    RuleDocument again(&prompt);
    ASSERT_EQ(again.Open(Copy()), RuleDocument::OpenFailure::None);
    EXPECT_TRUE(prompt.texts.empty());
    EXPECT_TRUE(again.IsPasswordProtected());
    EXPECT_FALSE(again.IsFileBehind());
}

#include "Document/RuleFileAccess.h"

#include "Platform/Files.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"
#include "Utilities/Texts.h"

#include <Vantrel/VantrelLog.h>

#include <gtest/gtest.h>

#include <optional>

using Platform::FileCause;
using Platform::HeldFile;

namespace
{

class RuleFileAccessTest : public testing::Test
{
protected:
    RuleFileAccessTest()
    {
        WriteBytes(path, "<Lumeq/>");
        CVantrelLog::OpenLogFile(logPath);
    }
    ~RuleFileAccessTest() override { CVantrelLog::CloseLogFile(); }

    void OthersTake()
    {
        FileCause cause = FileCause::None;
        others = HeldFile::Open(path, cause);
        ASSERT_NE(others, nullptr);
    }

    bool IsFree(const std::wstring& file) const
    {
        FileCause cause = FileCause::None;
        return HeldFile::Open(file, cause) != nullptr;
    }

    void OpenReadOnly()
    {
        OthersTake();
        prompt.answer = true;
        ASSERT_TRUE(access->TakeForOpening(path, L""));
        ASSERT_TRUE(access->IsReadOnly());
        prompt.texts.clear();
    }

    bool HasLogged(const std::string& text) const { return ReadBytes(logPath).find(text) != std::string::npos; }

    TemporaryFolder folder;
    std::wstring path = folder.File(L"rules.vrf");
    std::wstring otherPath = folder.File(L"other.vrf");
    std::wstring logPath = folder.File(L"log");
    RecordingPrompt prompt;
    std::optional<RuleFileAccess> access{ std::in_place, &prompt };
    std::unique_ptr<HeldFile> others;
};

} // namespace

TEST_F(RuleFileAccessTest, OpeningHoldsTheFileUntilTheDocumentGoes)
{
    EXPECT_TRUE(access->TakeForOpening(path, L""));
    EXPECT_TRUE(access->IsHeld());
    EXPECT_FALSE(access->IsReadOnly());
    EXPECT_FALSE(IsFree(path));
    access.reset();
    EXPECT_TRUE(IsFree(path));
    EXPECT_TRUE(prompt.texts.empty());
    EXPECT_TRUE(HasLogged("rules.vrf has been closed"));
}

TEST_F(RuleFileAccessTest, AFileThatOthersHoldIsOpenedReadOnlyIfTheUserWants)
{
    OthersTake();
    prompt.answer = false;
    EXPECT_FALSE(access->TakeForOpening(path, L""));
    EXPECT_FALSE(access->IsReadOnly());
    EXPECT_TRUE(HasLogged("File is already open. User selected not to open in read-only mode"));
    prompt.answer = true;
    EXPECT_TRUE(access->TakeForOpening(path, L""));
    EXPECT_TRUE(access->IsReadOnly());
    EXPECT_FALSE(access->IsHeld());
    EXPECT_TRUE(HasLogged("File opened in read only mode"));
    ASSERT_EQ(prompt.texts.size(), 2U);
    EXPECT_NE(prompt.texts[0].find(path), std::wstring::npos);
}

TEST_F(RuleFileAccessTest, AMissingFileIsToldAndNotOpened)
{
    EXPECT_FALSE(access->TakeForOpening(otherPath, L""));
    EXPECT_EQ(prompt.texts, std::vector<std::wstring>{ FormatText(TextId::FileNotFound, { otherPath }) });
}

TEST_F(RuleFileAccessTest, TheDocumentsOwnPathIsReadWhateverStandsAgainstIt)
{
    EXPECT_TRUE(access->TakeForOpening(otherPath, otherPath)) << "missing";
    OthersTake();
    EXPECT_TRUE(access->TakeForOpening(path, path)) << "held by others";
    EXPECT_FALSE(access->IsReadOnly());
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(RuleFileAccessTest, SavingANewDocumentTakesTheFileAfterTheWrite)
{
    EXPECT_TRUE(access->ReleaseForSaving(otherPath, L""));
    WriteBytes(otherPath, "<Lumeq/>");
    access->TakeAfterSaving(otherPath);
    EXPECT_TRUE(access->IsHeld());
    EXPECT_FALSE(IsFree(otherPath));
}

TEST_F(RuleFileAccessTest, SavingLetsGoOfTheHeldFileForTheWriteOnly)
{
    ASSERT_TRUE(access->TakeForOpening(path, L""));
    EXPECT_TRUE(access->ReleaseForSaving(path, path));
    EXPECT_FALSE(access->IsHeld());
    EXPECT_TRUE(IsFree(path));
    access->TakeAfterSaving(path);
    EXPECT_FALSE(IsFree(path));
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(RuleFileAccessTest, AReadOnlyDocumentIsNotSavedOverWhileTheOtherUserIsThere)
{
    OpenReadOnly();
    EXPECT_FALSE(access->ReleaseForSaving(path, path));
    EXPECT_TRUE(access->IsReadOnly());
    EXPECT_EQ(prompt.texts.size(), 1U);
    EXPECT_TRUE(HasLogged("The document was opened in read-only mode. Changes can not be saved"));
}

TEST_F(RuleFileAccessTest, AReadOnlyDocumentIsSavedAfterAWarningOnceTheOtherUserHasGone)
{
    OpenReadOnly();
    others.reset();
    EXPECT_TRUE(access->ReleaseForSaving(path, path));
    EXPECT_FALSE(access->IsReadOnly());
    EXPECT_EQ(prompt.texts, std::vector<std::wstring>{ FormatText(TextId::OthersMayHaveChanged, { path }) });
    access->TakeAfterSaving(path);
    EXPECT_TRUE(access->IsHeld());
}

TEST_F(RuleFileAccessTest, AReadOnlyDocumentThatIsSavedElsewhereIsAnOrdinaryOne)
{
    OpenReadOnly();
    EXPECT_TRUE(access->ReleaseForSaving(otherPath, path));
    EXPECT_FALSE(access->IsReadOnly());
    EXPECT_TRUE(prompt.texts.empty());
    WriteBytes(otherPath, "<Lumeq/>");
    access->TakeAfterSaving(otherPath);
    EXPECT_TRUE(access->IsHeld());
}

TEST_F(RuleFileAccessTest, AnotherFileThatOthersHoldIsNotSavedOver)
{
    OthersTake();
    EXPECT_FALSE(access->ReleaseForSaving(path, otherPath));
    ASSERT_EQ(prompt.texts.size(), 1U);
    EXPECT_NE(prompt.texts[0].find(path), std::wstring::npos);
}

TEST_F(RuleFileAccessTest, AFileWhoseNameDiffersOnlyInCaseIsAnotherOneWhereTheSystemTellsThemApart)
{
    OthersTake();
    EXPECT_FALSE(access->ReleaseForSaving(path, folder.File(L"RULES.vrf")));
    EXPECT_EQ(prompt.texts.size(), 1U);
}

TEST_F(RuleFileAccessTest, AFolderIsNotSavedOver)
{
    EXPECT_FALSE(access->ReleaseForSaving(folder.Path(), path));
    EXPECT_EQ(prompt.texts, std::vector<std::wstring>{ FormatText(TextId::FileNotSaved, { folder.Path() }) });
}

TEST_F(RuleFileAccessTest, AFileThatCannotBeTakenAgainLeavesTheDocumentWithout)
{
    OthersTake();
    access->TakeAfterSaving(path);
    EXPECT_FALSE(access->IsHeld());
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(RuleFileAccessTest, AFileIsFreeToBeWrittenUnlessOthersHaveTakenIt)
{
    EXPECT_TRUE(access->IsFreeToWrite(path));
    EXPECT_TRUE(access->IsFreeToWrite(otherPath)) << "one that isn't there yet";
    OthersTake();
    EXPECT_FALSE(access->IsFreeToWrite(path));
}

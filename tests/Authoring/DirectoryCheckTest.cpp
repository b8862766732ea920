#include "Authoring/DirectoryCheck.h"

#include "Platform/Files.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using testing::HasSubstr;

// A folder in which nobody, the administrator included, can make a file.
const std::wstring NotWritable = L"/proc/self";

class DirectoryCheckTest : public testing::Test
{
protected:
    const std::wstring& Text() const
    {
        if (prompt.texts.size() != 1)
        {
            throw std::runtime_error("not one box");
        }
        return prompt.texts.front();
    }

    TemporaryFolder folder;
    RecordingPrompt prompt;
};

} // namespace

TEST_F(DirectoryCheckTest, TheFourStatesOfAFolder)
{
    WriteBytes(folder.File(L"file"), "");
    EXPECT_EQ(CheckDirectoryPath(folder.Path()), DirectoryOk);
    EXPECT_EQ(CheckDirectoryPath(folder.Path() + L"."), DirectoryOk);
    EXPECT_EQ(CheckDirectoryPath(folder.File(L"none")), DirectoryMissing);
    EXPECT_EQ(CheckDirectoryPath(folder.File(L"file")), DirectoryMissing);
    EXPECT_EQ(CheckDirectoryPath(NotWritable), DirectoryNotWritable);
    EXPECT_EQ(CheckDirectoryPath(L""), DirectoryInvalid);
    EXPECT_EQ(CheckDirectoryPath(L"scripts"), DirectoryInvalid);
}

TEST_F(DirectoryCheckTest, AGoodFolderIsConfirmedWithoutAWord)
{
    EXPECT_EQ(ConfirmScriptLocation(folder.Path(), prompt), DirectoryOk);
    EXPECT_EQ(ValidateDirectory(folder.Path(), prompt), DirectoryOk);
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(DirectoryCheckTest, AMissingFolderIsMadeOnYes)
{
    prompt.answer = true;
    EXPECT_EQ(ConfirmScriptLocation(folder.File(L"new"), prompt), DirectoryOk);
    EXPECT_TRUE(Platform::FolderExists(folder.File(L"new")));
    EXPECT_THAT(Text(), HasSubstr(L"Script folder: " + folder.File(L"new")));
}

TEST_F(DirectoryCheckTest, AMissingFolderStaysMissingOnNo)
{
    EXPECT_EQ(ConfirmScriptLocation(folder.File(L"new"), prompt), DirectoryMissing);
    EXPECT_EQ(prompt.texts.size(), 1u);
    EXPECT_FALSE(Platform::PathExists(folder.File(L"new")));
}

TEST_F(DirectoryCheckTest, OnlyOneLevelIsMadeAndTheFailureIsAnError)
{
    prompt.answer = true;
    const std::wstring deep = folder.File(L"no") + Platform::PathSeparator + L"such";
    EXPECT_EQ(ConfirmScriptLocation(deep, prompt), DirectoryMissing);
    ASSERT_EQ(prompt.texts.size(), 2u);
    EXPECT_EQ(prompt.kinds.back(), BoxKind::Error);
    EXPECT_THAT(prompt.texts.back(), HasSubstr(L"\"" + deep + L"\""));
    EXPECT_FALSE(Platform::PathExists(folder.File(L"no")));
}

TEST_F(DirectoryCheckTest, AFolderThatCanNotBeWrittenToIsAnErrorAtACommandAndAWarningInTheDialog)
{
    EXPECT_EQ(ConfirmScriptLocation(NotWritable, prompt), DirectoryNotWritable);
    EXPECT_EQ(ValidateDirectory(NotWritable, prompt), DirectoryNotWritable);
    EXPECT_EQ(prompt.kinds, (std::vector{ BoxKind::Error, BoxKind::Warning }));
    EXPECT_THAT(prompt.texts.front(), HasSubstr(L"Script folder: " + NotWritable));
    EXPECT_EQ(prompt.texts.back().find(NotWritable), 0u) << "the path alone";
}

TEST_F(DirectoryCheckTest, APathThatIsNoneIsAnErrorThatNamesItAlone)
{
    EXPECT_EQ(ConfirmScriptLocation(L"scripts", prompt), DirectoryInvalid);
    EXPECT_EQ(prompt.kinds, std::vector{ BoxKind::Error });
    EXPECT_EQ(Text().find(L"\"scripts\""), 0u);
}

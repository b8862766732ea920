#include "Utilities/Hash.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

namespace
{

class MD5OfFileTest : public testing::Test
{
protected:
    std::wstring HashOf(const std::string& bytes)
    {
        WriteBytes(path, bytes);
        std::wstring digest;
        EXPECT_NE(MD5OfFile(path, digest), 0);
        return digest;
    }

    TemporaryFolder folder;
    std::wstring path = folder.File(L"bytes");
};

} // namespace

TEST_F(MD5OfFileTest, TheHashOfAnEmptyFileIsThatOfNoBytes)
{
    EXPECT_EQ(HashOf(""), L"d41d8cd98f00b204e9800998ecf8427e");
}

TEST_F(MD5OfFileTest, TheBytesCountAsTheyStandOnDisk)
{
    EXPECT_EQ(HashOf("abc"), L"900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(HashOf("abc\r\n"), L"c13b6afecf97ea6b38d21a8f5167fa1e");
    EXPECT_EQ(HashOf(std::string("\0\x1A\0", 3)), L"891a01f3bd39cfb0b995c7cbd8002af2");
}

TEST_F(MD5OfFileTest, FilesAroundTheLengthOfAReadArePartedNowhere)
{
    EXPECT_EQ(HashOf(std::string(4095, 'x')), L"d91e68c1ea965db139a5422c798cc465");
    EXPECT_EQ(HashOf(std::string(4096, 'x')), L"20439f79e4e9dc95be34b21029221f80");
    EXPECT_EQ(HashOf(std::string(4097, 'x')), L"88751dd296563726278c2d57ab7549e4");
}

TEST_F(MD5OfFileTest, AFileThatCannotBeOpenedLeavesTheText)
{
    std::wstring digest = L"before";
    EXPECT_EQ(MD5OfFile(folder.File(L"missing"), digest), 0);
    EXPECT_EQ(MD5OfFile(folder.Path(), digest), 0);
    EXPECT_EQ(MD5OfFile(L"", digest), 0);
    EXPECT_EQ(digest, L"before");
}

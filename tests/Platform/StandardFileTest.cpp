#include "Platform/StandardFile.h"

#include "Platform/Files.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

namespace
{

struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

using File = std::unique_ptr<std::FILE, FileCloser>;

File Open(const std::wstring& path, Platform::StandardFileUse use)
{
    return File(Platform::OpenStandardFile(path, use));
}

} // namespace

TEST(StandardFileTest, AFileIsReadAndReplacedByteForByte)
{
    TemporaryFolder folder;
    const std::wstring path = folder.File(L"\x00e9\x4e2d.bin");
    WriteBytes(path, "what was there before");
    {
        const File file = Open(path, Platform::StandardFileUse::Replace);
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(std::fwrite("a\r\n\0b\n", 1, 6, file.get()), 6u);
    }
    EXPECT_EQ(ReadBytes(path), std::string("a\r\n\0b\n", 6));
    const File file = Open(path, Platform::StandardFileUse::Read);
    ASSERT_NE(file, nullptr);
    std::array<char, 16> bytes = {};
    EXPECT_EQ(std::fread(bytes.data(), 1, bytes.size(), file.get()), 6u);
}

TEST(StandardFileTest, WhatIsMissingOrAFolderCantBeOpened)
{
    TemporaryFolder folder;
    EXPECT_EQ(Open(folder.File(L"missing"), Platform::StandardFileUse::Read), nullptr);
    EXPECT_EQ(Open(folder.Path(), Platform::StandardFileUse::Read), nullptr);
    EXPECT_EQ(Open(folder.Path(), Platform::StandardFileUse::Replace), nullptr);
    EXPECT_EQ(Open(folder.File(L"missing/inner"), Platform::StandardFileUse::Replace), nullptr);
    EXPECT_EQ(Open(L"", Platform::StandardFileUse::Read), nullptr);
    EXPECT_EQ(Open(L"", Platform::StandardFileUse::Replace), nullptr);
    EXPECT_FALSE(Platform::PathExists(folder.File(L"missing")));
}

TEST(StandardFileTest, PositionsGoBeyondFourGigabytes)
{
    TemporaryFolder folder;
    const std::wstring path = folder.File(L"file");
    WriteBytes(path, "0123456789");
    const File file = Open(path, Platform::StandardFileUse::Read);
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(Platform::SeekStandardFile(file.get(), -3, SEEK_END));
    EXPECT_EQ(Platform::StandardFilePosition(file.get()), 7);
    EXPECT_EQ(std::fgetc(file.get()), '7');
    EXPECT_FALSE(Platform::SeekStandardFile(file.get(), -1, SEEK_SET));
    EXPECT_TRUE(Platform::SeekStandardFile(file.get(), 5'000'000'000, SEEK_SET));
    EXPECT_EQ(Platform::StandardFilePosition(file.get()), 5'000'000'000);
    EXPECT_EQ(std::fgetc(file.get()), EOF);
}

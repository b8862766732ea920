#include "tests/Platform/Posix/FaultyOperations.h"
#include "tests/Platform/Posix/OldFileFixture.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

using namespace Platform;
using namespace Platform::Posix;

namespace
{

using Call = FaultyOperations::Call;

class ReadFileTest : public OldFileFixture
{
};

TEST_F(ReadFileTest, ReadingGoesOnAfterShortAndInterruptedReads)
{
    FaultyOperations operations(Call::Read, 2, EINTR);
    operations.mostAtOnce = 5;
    const auto bytes = ReadWholeFileWith(operations, m_native);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->View(), "the old contents");
}

TEST_F(ReadFileTest, ReadingThatFailsHalfwayGivesNothing)
{
    FaultyOperations operations(Call::Read, 2, EIO);
    operations.mostAtOnce = 5;
    EXPECT_FALSE(ReadWholeFileWith(operations, m_native));
    EXPECT_EQ(operations.Calls().back(), Call::Close);
}

TEST_F(ReadFileTest, FileThatGrowsWhileItIsReadIsReadToItsEnd)
{
    struct Growing : FileOperations
    {
        std::wstring path;
        int left = 3;
        ssize_t Read(int file, void* data, std::size_t size) override
        {
            if (left-- > 0)
            {
                const int appending = ::open(NativePath(path).c_str(), O_WRONLY | O_APPEND);
                const std::string more(10'000, 'x');
                EXPECT_EQ(::write(appending, more.data(), more.size()), 10'000);
                ::close(appending);
            }
            return FileOperations::Read(file, data, size);
        }
    };
    Growing operations;
    operations.path = m_path;
    const auto bytes = ReadWholeFileWith(operations, m_native);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->View(), ReadBytes(m_path));
    EXPECT_EQ(bytes->Size(), 30'016u);
}

TEST_F(ReadFileTest, FileThatShrinksWhileItIsReadGivesWhatIsLeft)
{
    struct Shrinking : FileOperations
    {
        std::string path;
        ssize_t Read(int file, void* data, std::size_t size) override
        {
            EXPECT_EQ(::truncate(path.c_str(), 3), 0);
            return FileOperations::Read(file, data, size);
        }
    };
    Shrinking operations;
    operations.path = m_native;
    const auto bytes = ReadWholeFileWith(operations, m_native);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->View(), "the");
}

TEST_F(ReadFileTest, FileWithoutASizeIsReadToItsEnd)
{
    const auto bytes = ReadWholeFile(L"/proc/self/status");
    ASSERT_TRUE(bytes);
    EXPECT_GT(bytes->Size(), 100u);
}

TEST_F(ReadFileTest, DeviceIsNotRead)
{
    EXPECT_FALSE(ReadWholeFile(L"/dev/zero"));
}

} // namespace

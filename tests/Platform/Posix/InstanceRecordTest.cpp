#include "Platform/Posix/InstanceRecord.h"

#include <array>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Platform::Posix;
using Progress = InstanceRecordReader::Progress;

namespace
{

class InstanceRecordTest : public testing::Test
{
protected:
    InstanceRecordTest() { EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, m_ends.data()), 0); }
    ~InstanceRecordTest() override
    {
        HangUp();
        ::close(m_ends[1]);
    }

    void Send(std::string_view bytes)
    {
        EXPECT_EQ(::send(m_ends[0], bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
    }
    void HangUp()
    {
        ::close(m_ends[0]);
        m_ends[0] = -1;
    }
    Progress Read() { return m_reader.Read(m_ends[1]); }
    std::string Bytes() const { return { m_reader.Bytes().begin(), m_reader.Bytes().end() }; }

    std::array<int, 2> m_ends = { -1, -1 };
    InstanceRecordReader m_reader;
};

TEST_F(InstanceRecordTest, PathIsSentIn16BitUnitsWithItsTerminator)
{
    const auto record = MakeInstanceRecord(L"/\u00E9\U0001F600");
    ASSERT_TRUE(record);
    EXPECT_EQ(*record, std::string("\x0A\0\0\0/\0\xE9\0\x3D\xD8\x00\xDE\0\0", 14));
    Send(*record);
    EXPECT_EQ(Read(), Progress::Complete);
    EXPECT_EQ(Bytes(), record->substr(4));
}

TEST_F(InstanceRecordTest, NoPathIsAnEmptyRecord)
{
    Send(*MakeInstanceRecord(L""));
    EXPECT_EQ(Read(), Progress::Complete);
    EXPECT_EQ(Bytes(), "");
}

TEST_F(InstanceRecordTest, ComesByteByByteWithoutBlocking)
{
    const std::string record = *MakeInstanceRecord(L"/a");
    for (const char byte : record)
    {
        EXPECT_EQ(Read(), Progress::Waiting);
        Send({ &byte, 1 });
    }
    EXPECT_EQ(Read(), Progress::Complete);
}

TEST_F(InstanceRecordTest, EndBeforeTheWholeIsBroken)
{
    const std::string record = *MakeInstanceRecord(L"/a");
    Send(record.substr(0, record.size() - 1));
    HangUp();
    EXPECT_EQ(Read(), Progress::Broken);
}

TEST_F(InstanceRecordTest, NothingAtAllIsBroken)
{
    HangUp();
    EXPECT_EQ(Read(), Progress::Broken);
}

TEST_F(InstanceRecordTest, SizeBeyondTheLimitIsRefusedAtOnce)
{
    Send(std::string("\x01\x00\x01\x00", 4));
    EXPECT_EQ(Read(), Progress::Broken);
}

TEST_F(InstanceRecordTest, HugeSizeIsRefusedAtOnce)
{
    Send("\xFF\xFF\xFF\xFF");
    EXPECT_EQ(Read(), Progress::Broken);
}

TEST_F(InstanceRecordTest, LongestPathGoesThroughAndALongerOneIsNotSent)
{
    const std::wstring longest(MostRecordBytes / 2 - 1, L'x');
    EXPECT_FALSE(MakeInstanceRecord(longest + L'x'));
    Send(*MakeInstanceRecord(longest));
    EXPECT_EQ(Read(), Progress::Complete);
    EXPECT_EQ(Bytes().size(), MostRecordBytes);
}

TEST_F(InstanceRecordTest, WhatComesBehindTheRecordIsNotRead)
{
    Send(*MakeInstanceRecord(L"/a") + "more");
    EXPECT_EQ(Read(), Progress::Complete);
    EXPECT_EQ(Bytes().size(), 6u);
}

} // namespace

#include "Compound/ZipFormat.h"

#include "tests/Compound/TestArchive.h"
#include "tests/Support/ScopedEnvironment.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace
{

template <std::size_t Size>
std::string Bytes(const std::array<unsigned char, Size>& array)
{
    return { array.begin(), array.end() };
}

ArchiveTime At(int year, int month, int day, int hour, int minute, int second)
{
    return { 0, year, month, day, hour, minute, second };
}

} // namespace

TEST(ZipFormatTest, SecondsAreDoubledAndCut)
{
    EXPECT_EQ(ZipFormat::PackTimeAndDate(At(1980, 0, 0, 0, 0, 59)), 22u);
    EXPECT_EQ(ZipFormat::PackTimeAndDate(At(1980, 0, 0, 0, 0, 15)), 30u);
    EXPECT_EQ(ZipFormat::PackTimeAndDate(At(1980, 0, 0, 0, 0, 16)), 0u);
}

TEST(ZipFormatTest, TheDateStandsInTheHighHalfAndTheTimeInTheLowOne)
{
    const std::uint32_t packed = ZipFormat::PackTimeAndDate(At(2020, 2, 29, 13, 14, 59));
    EXPECT_EQ(packed >> 16, (40u << 9) | (2u << 5) | 29u);
    EXPECT_EQ(packed & 0xFFFF, (13u << 11) | (14u << 5) | 22u);
}

TEST(ZipFormatTest, YearsBeyondTheFieldWrap)
{
    EXPECT_EQ(ZipFormat::PackTimeAndDate(At(2108, 1, 1, 0, 0, 0)), ((0u << 9) | (1u << 5) | 1u) << 16);
    EXPECT_EQ(ZipFormat::PackTimeAndDate(At(1979, 12, 31, 0, 0, 0)), ((127u << 9) | (12u << 5) | 31u) << 16);
}

TEST(ZipFormatTest, TheTimestampBlockHasThreeTimesInTheHeaderAndOneInTheDirectory)
{
    ArchiveTime time;
    time.secondsSince1970 = 0x1'89AB'CDEF;
    const auto local = ZipFormat::MakeLocalExtra(time);
    EXPECT_EQ(Bytes(local), std::string("UT\x0d\0\7\xef\xcd\xab\x89\xef\xcd\xab\x89\xef\xcd\xab\x89", 17))
        << "the low 32 bits of the clock";
    EXPECT_EQ(Bytes(ZipFormat::MakeCentralExtra(local)), std::string("UT\5\0\7\xef\xcd\xab\x89", 9));
}

TEST(ZipFormatTest, SuffixesOfCompressedFilesAreStored)
{
    for (const wchar_t* const name : { L"a.Z", L"a.z", L"a.zip", L"a.zoo", L"a.arc", L"a.lzh", L"a.arj", L"a.gz",
                                       L"a.tgz", L"a.png", L"a.jpg", L"a.JPG", L"a.jpeg", L"dir/b.Png", L".zip" })
    {
        EXPECT_FALSE(ZipFormat::IsCompressible(name)) << name;
    }
}

TEST(ZipFormatTest, AllElseIsDeflated)
{
    for (const wchar_t* const name : { L"", L"a", L"jpg", L"a.", L"a.jpg.txt", L"a.jpgx", L"a.jp", L"a.zip ", L"a.bas",
                                       L"dir.zip/a", L"dir.zip/zip", L"a.7z" })
    {
        EXPECT_TRUE(ZipFormat::IsCompressible(name)) << name;
    }
}

TEST(ZipFormatTest, RecordsHaveTheirFieldsWhereTheyBelong)
{
    ZipFormat::LocalHeader header;
    header.method = 0x0102;
    header.timeAndDate = 0x03040506;
    header.crc = 0x0708090A;
    header.compressedSize = 0x0B0C0D0E;
    header.uncompressedSize = 0x0F101112;
    header.nameLength = 0x1314;
    header.extraLength = 0x1516;
    EXPECT_EQ(Bytes(ZipFormat::Pack(header)),
              std::string(
                  "PK\3\4\x14\0\0\0\2\1\6\5\4\3\x0a\x09\x08\x07\x0e\x0d\x0c\x0b\x12\x11\x10\x0f\x14\x13\x16\x15", 30));

    ZipFormat::CentralRecord record;
    record.method = 8;
    record.timeAndDate = 0x01020304;
    record.crc = 0x05060708;
    record.compressedSize = 0x090A0B0C;
    record.uncompressedSize = 0x0D0E0F10;
    record.nameLength = 0x1112;
    record.extraLength = 0x1314;
    record.commentLength = 0x1516;
    record.headerOffset = 0x1718191A;
    EXPECT_EQ(Bytes(ZipFormat::Pack(record)),
              std::string("PK\1\2\x14\0\0\0\0\0\x08\0\4\3\2\1\x08\x07\x06\x05\x0c\x0b\x0a\x09\x10\x0f\x0e\x0d\x12\x11"
                          "\x14\x13\x16\x15\0\0\0\0\0\0\0\x80\x1a\x19\x18\x17",
                          46));

    ZipFormat::EndRecord end;
    end.entriesOnDisk = 0x0102;
    end.entries = 0x0304;
    end.directorySize = 0x05060708;
    end.directoryOffset = 0x090A0B0C;
    EXPECT_EQ(Bytes(ZipFormat::Pack(end)),
              std::string("PK\5\6\0\0\0\0\2\1\4\3\x08\x07\x06\x05\x0c\x0b\x0a\x09\0\0", 22));
}

TEST(ZipFormatTest, RecordsAreReadAsTheyWereWritten)
{
    ZipFormat::CentralRecord record;
    record.method = 0xFFFE;
    record.timeAndDate = 0xFFFEFDFC;
    record.crc = 0xF0000001;
    record.compressedSize = 0xF0000002;
    record.uncompressedSize = 0xF0000003;
    record.nameLength = 0xF004;
    record.extraLength = 0xF005;
    record.commentLength = 0xF006;
    record.headerOffset = 0xF0000007;
    const auto again = ZipFormat::UnpackCentralRecord(ZipFormat::Pack(record));
    EXPECT_EQ(ZipFormat::Pack(again), ZipFormat::Pack(record));

    ZipFormat::LocalHeader header;
    header.method = 0xFFFE;
    header.crc = 0xF0000001;
    header.compressedSize = 0xF0000002;
    header.uncompressedSize = 0xF0000003;
    header.nameLength = 0xF004;
    header.extraLength = 0xF005;
    EXPECT_EQ(ZipFormat::Pack(ZipFormat::UnpackLocalHeader(ZipFormat::Pack(header))), ZipFormat::Pack(header));

    const ZipFormat::EndRecord end = { 0xF001, 0xF002, 0xF0000003, 0xF0000004 };
    EXPECT_EQ(ZipFormat::Pack(ZipFormat::UnpackEndRecord(ZipFormat::Pack(end))), ZipFormat::Pack(end));
}

TEST(ZipFormatTest, TheClockOfTheSystemTellsOneMomentTwice)
{
    const ArchiveTime now = CurrentArchiveTime();
    EXPECT_GT(now.secondsSince1970, 1'600'000'000);
    EXPECT_GE(now.year, 2020);
    EXPECT_EQ(now.secondsSince1970 % 60, now.second % 60);
}

TEST(ZipFormatTest, TheDateAndTimeOfTheClockAreLocal)
{
    // A zone that no user has, nearly half a day ahead.
    const ScopedEnvironment zone("TZ", L"TEST-11:17");
    const ArchiveTime now = CurrentArchiveTime();
    const std::chrono::sys_seconds local(std::chrono::seconds(now.secondsSince1970) + std::chrono::hours(11) +
                                         std::chrono::minutes(17));
    const auto midnight = std::chrono::floor<std::chrono::days>(local);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss time(local - midnight);
    EXPECT_EQ(now.year, static_cast<int>(date.year()));
    EXPECT_EQ(now.month, static_cast<int>(static_cast<unsigned>(date.month())));
    EXPECT_EQ(now.day, static_cast<int>(static_cast<unsigned>(date.day())));
    EXPECT_EQ(now.hour, time.hours().count());
    EXPECT_EQ(now.minute, time.minutes().count());
    EXPECT_EQ(now.second, time.seconds().count());
}

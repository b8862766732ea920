#include "Platform/Hash.h"

#include <gtest/gtest.h>

using namespace Platform;

namespace
{

std::string HashOf(std::string_view bytes)
{
    Md5 hash;
    hash.Add(bytes.data(), bytes.size());
    return hash.Finish().value_or("failed");
}

struct KnownHash
{
    const char* bytes;
    const char* digits;
};

// The examples that the algorithm was published with.
constexpr KnownHash KnownHashes[] = {
    { "", "d41d8cd98f00b204e9800998ecf8427e" },
    { "a", "0cc175b9c0f1b6a831c399e269772661" },
    { "abc", "900150983cd24fb0d6963f7d28e17f72" },
    { "message digest", "f96b697d7cb7938d525a2f31aaf161d0" },
    { "abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b" },
    { "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789", "d174ab98d277d9f5a5611c2c9f419d9f" },
    { "12345678901234567890123456789012345678901234567890123456789012345678901234567890",
      "57edf4a22be3c955ac49da2e2107b67a" },
};

} // namespace

TEST(Md5Test, KnownTextsHaveTheirHashes)
{
    for (const KnownHash& known : KnownHashes)
    {
        EXPECT_EQ(HashOf(known.bytes), known.digits) << known.bytes;
    }
}

TEST(Md5Test, PiecesOfAnyLengthGiveTheHashOfTheWhole)
{
    std::string bytes;
    for (int count = 0; count < 300; ++count)
    {
        bytes += static_cast<char>(count * 7);
    }
    const std::string whole = HashOf(bytes);
    for (std::size_t length = 1; length < bytes.size(); ++length)
    {
        Md5 hash;
        for (std::size_t start = 0; start < bytes.size(); start += length)
        {
            const std::string piece = bytes.substr(start, length);
            hash.Add(piece.data(), piece.size());
        }
        ASSERT_EQ(hash.Finish(), whole) << length;
    }
}

TEST(Md5Test, NothingMayBeAddedFromNowhere)
{
    Md5 hash;
    hash.Add(nullptr, 0);
    EXPECT_EQ(hash.Finish(), KnownHashes[0].digits);
}

#include "Application/ForwardedFile.h"

#include "Modules/ApplicationGlobals.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

std::optional<std::wstring> Forwarded(const std::string& bytes)
{
    return ForwardedPath(bytes.data(), bytes.size());
}

/// What is opened when the bytes come from another start, and whether they were taken.
struct Taken
{
    bool result = false;
    std::vector<std::wstring> opened;
};

Taken Take(const void* data, std::size_t size)
{
    Taken taken;
    taken.result = TakeForwardedFile(data, size, [&](const std::wstring& path) { taken.opened.push_back(path); });
    return taken;
}

/// As while the editor of a rule is open.
class Editing
{
public:
    Editing() { g_bEditInProgress = true; }
    ~Editing() { g_bEditInProgress = false; }
    Editing(const Editing&) = delete;
    Editing& operator=(const Editing&) = delete;
};

} // namespace

TEST(ForwardedFileTest, APathEndsAtItsTerminator)
{
    EXPECT_EQ(Forwarded(std::string("a\0.\0v\0\0\0x\0", 10)), L"a.v");
}

TEST(ForwardedFileTest, NothingIsReadBeyondTheSize)
{
    EXPECT_EQ(Forwarded(std::string("a\0b\0", 4)), L"ab") << "no terminator";
    EXPECT_EQ(Forwarded(std::string("a\0b", 3)), L"a") << "half a unit";
    EXPECT_EQ(Forwarded("a"), std::nullopt);
    EXPECT_EQ(Forwarded(""), std::nullopt);
    EXPECT_EQ(ForwardedPath(nullptr, 100), std::nullopt);
}

TEST(ForwardedFileTest, CharactersBeyondSixteenBitsAreJoined)
{
    EXPECT_EQ(Forwarded(std::string("\x3d\xd8\x00\xde\0\0", 6)), L"\U0001f600");
}

TEST(ForwardedFileTest, AFileIsTakenAndOpened)
{
    const Taken taken = Take("a\0\0\0", 4);
    EXPECT_TRUE(taken.result);
    EXPECT_EQ(taken.opened, std::vector<std::wstring>{ L"a" });
}

TEST(ForwardedFileTest, AFileIsRefusedWhileTheEditorOfARuleIsOpen)
{
    const Editing editing;
    const Taken taken = Take("a\0\0\0", 4);
    EXPECT_FALSE(taken.result);
    EXPECT_TRUE(taken.opened.empty());
}

TEST(ForwardedFileTest, NoDataIsTakenAlsoWhileTheEditorOfARuleIsOpenAndOpensNothing)
{
    const Editing editing;
    EXPECT_TRUE(Take(nullptr, 0).result);
    EXPECT_TRUE(Take(nullptr, 100).result);
}

TEST(ForwardedFileTest, AnEmptyPathIsTakenAndOpensNothing)
{
    const Taken taken = Take("\0\0", 2);
    EXPECT_TRUE(taken.result);
    EXPECT_TRUE(taken.opened.empty());
}

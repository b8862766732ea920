#include "Compound/ZipEntryIndex.h"

#include "Platform/Text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace
{

std::vector<ZipEntry> Entries(const std::vector<std::wstring>& names)
{
    std::vector<ZipEntry> entries;
    for (const std::wstring& name : names)
    {
        entries.emplace_back().name = name;
    }
    return entries;
}

/// What the index must find: by walking over all entries.
std::vector<const ZipEntry*> Walk(const std::vector<ZipEntry>& entries, std::wstring_view text, bool whole)
{
    std::vector<const ZipEntry*> found;
    for (const ZipEntry& entry : entries)
    {
        const std::wstring_view name = entry.name;
        if (Platform::EqualsNoCase(whole ? name : name.substr(0, text.size()), text))
        {
            found.push_back(&entry);
        }
    }
    return found;
}

} // namespace

TEST(ZipEntryIndexTest, AllEntriesOfANameComeInTheirOrderWhateverTheirCase)
{
    const auto entries = Entries({ L"B", L"a", L"b", L"A/x", L"\x00c9", L"b", L"\x00e9" });
    const ZipEntryIndex index(entries);
    EXPECT_EQ(index.Named(L"b"), (std::vector<const ZipEntry*>{ &entries[0], &entries[2], &entries[5] }));
    EXPECT_EQ(index.Named(L"\x00e9"), (std::vector<const ZipEntry*>{ &entries[4], &entries[6] }));
    EXPECT_TRUE(index.Named(L"c").empty());
    EXPECT_TRUE(index.HasName(L"A"));
    EXPECT_FALSE(index.HasName(L"a/"));
    EXPECT_TRUE(index.HasBeginning(L"a/"));
    EXPECT_FALSE(index.HasBeginning(L"b/"));
}

TEST(ZipEntryIndexTest, AnEmptyBeginningIsThatOfEveryEntry)
{
    const auto entries = Entries({ L"b", L"", L"a" });
    const ZipEntryIndex index(entries);
    EXPECT_EQ(index.BeginningWith(L""), (std::vector<const ZipEntry*>{ &entries[0], &entries[1], &entries[2] }));
    EXPECT_TRUE(index.HasBeginning(L""));
    const std::vector<ZipEntry> none;
    EXPECT_FALSE(ZipEntryIndex(none).HasBeginning(L""));
}

TEST(ZipEntryIndexTest, ResultsAreThoseOfAWalk)
{
    // Letters whose two forms are far apart in the order of code points.
    const std::wstring letters = L"aA/\x00e9\x00c9\x0130\x0131\x212a kK\x01c5\xffff";
    std::minstd_rand random(3);
    const auto makeName = [&](std::size_t longest)
    {
        std::wstring name;
        for (std::size_t left = random() % (longest + 1); left > 0; --left)
        {
            name += letters[random() % letters.size()];
        }
        return name;
    };
    std::vector<std::wstring> names(3000);
    for (std::wstring& name : names)
    {
        name = makeName(5);
    }
    const auto entries = Entries(names);
    const ZipEntryIndex index(entries);
    std::size_t found = 0;
    for (int query = 0; query < 2000; ++query)
    {
        const std::wstring text = makeName(4);
        const auto whole = Walk(entries, text, true);
        const auto beginning = Walk(entries, text, false);
        ASSERT_EQ(index.Named(text), whole);
        ASSERT_EQ(index.HasName(text), !whole.empty());
        ASSERT_EQ(index.BeginningWith(text), beginning);
        ASSERT_EQ(index.HasBeginning(text), !beginning.empty());
        found += whole.size();
    }
    EXPECT_GT(found, 1000u);
}

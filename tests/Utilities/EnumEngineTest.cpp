#include "Utilities/EnumEngine.h"

#include "tests/Utilities/LanguageInUse.h"
#include "Utilities/Texts.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace
{

using Keys = std::vector<std::uint32_t>;

struct UnitText
{
    std::int32_t kind;
    std::uint32_t key;
    std::uint32_t resourceId;
    const wchar_t* english;
};

constexpr UnitText UnitTexts[] = {
    { 7, 0, 61549, L"millimeters" },
    { 7, 1, 61550, L"centimeters" },
    { 7, 2, 61551, L"meters" },
    { 7, 3, 61554, L"inches" },
    { 7, 4, 61555, L"feet" },
    { 7, 5, 61556, L"feet & inches" },
    { 7, 6, 61546, L"angstroms" },
    { 7, 7, 61547, L"nanometers" },
    { 7, 8, 61548, L"microns" },
    { 7, 9, 61553, L"mils" },
    { 7, 10, 61552, L"microinches" },
    { 8, 0, 61567, L"degrees" },
    { 8, 1, 61571, L"degrees/minutes" },
    { 8, 2, 61572, L"degrees/minutes/seconds" },
    { 8, 3, 61568, L"radians" },
};

constexpr std::uint32_t Untouched = 77;

} // namespace

TEST(EnumEngineTest, EachUnitIsNamedByItsTextAndFoundByIt)
{
    CEnumEngine engine;
    for (const UnitText& unit : UnitTexts)
    {
        std::uint32_t resourceId = Untouched;
        EXPECT_TRUE(engine.GetResourceId(unit.kind, unit.key, &resourceId));
        EXPECT_EQ(resourceId, unit.resourceId) << unit.english;
        std::wstring text = L"before";
        EXPECT_TRUE(engine.GetTextFromEnum(unit.kind, unit.key, text));
        EXPECT_EQ(text, unit.english);
        EXPECT_EQ(LoadText(unit.resourceId), unit.english);
        std::uint32_t key = Untouched;
        EXPECT_TRUE(engine.GetEnumFromText(unit.kind, unit.english, &key)) << unit.english;
        EXPECT_EQ(key, unit.key) << unit.english;
    }
}

TEST(EnumEngineTest, TheTextOfTheNumber61549IsTheLengthZero)
{
    std::uint32_t key = Untouched;
    EXPECT_TRUE(CEnumEngine().GetEnumFromText(7, LoadText(61549), &key));
    EXPECT_EQ(key, 0u);
}

TEST(EnumEngineTest, NamesAreSearchedInTheOrderOfTheBuckets)
{
    const CEnumEngine engine;
    EXPECT_EQ(engine.KeysInSearchOrder(7), (Keys{ 0, 8, 5, 2, 10, 7, 4, 1, 9, 6, 3 }));
    EXPECT_EQ(engine.KeysInSearchOrder(8), (Keys{ 0, 2, 1, 3 }));
    EXPECT_EQ(engine.KeysInSearchOrder(9), Keys());
}

TEST(EnumEngineTest, UnitsAreListedBySize)
{
    EXPECT_EQ(CEnumEngine::KeysBySize(7), (Keys{ 6, 7, 8, 0, 1, 2, 10, 9, 3, 4, 5 }));
    EXPECT_EQ(CEnumEngine::KeysBySize(8), (Keys{ 0, 1, 2, 3 }));
    EXPECT_EQ(CEnumEngine::KeysBySize(0), Keys());
}

TEST(EnumEngineTest, ATextOfAnotherLanguageIsNotFound)
{
    std::uint32_t key = Untouched;
    EXPECT_FALSE(CEnumEngine().GetEnumFromText(7, L"millim\u00E8tres", &key));
    EXPECT_EQ(key, UINT32_MAX);
    const LanguageInUse french(FRENCH_LIBRARY);
    EXPECT_TRUE(CEnumEngine().GetEnumFromText(7, L"millim\u00E8tres", &key));
    EXPECT_EQ(key, 0u);
    EXPECT_FALSE(CEnumEngine().GetEnumFromText(7, L"millimeters", &key));
    EXPECT_EQ(key, UINT32_MAX);
}

TEST(EnumEngineTest, CaseAndBlanksCount)
{
    for (const wchar_t* const text : { L"Inches", L"inches ", L" ", L"inch" })
    {
        std::uint32_t key = Untouched;
        EXPECT_FALSE(CEnumEngine().GetEnumFromText(7, text, &key)) << text;
        EXPECT_EQ(key, UINT32_MAX) << text;
    }
}

TEST(EnumEngineTest, ALengthIsNoAngle)
{
    std::uint32_t key = Untouched;
    EXPECT_FALSE(CEnumEngine().GetEnumFromText(8, L"inches", &key));
    EXPECT_FALSE(CEnumEngine().GetEnumFromText(7, L"degrees", &key));
}

TEST(EnumEngineTest, AKindWithoutUnitsFindsNoText)
{
    for (const std::int32_t kind : { 9, 0, 1, -7 })
    {
        std::uint32_t key = Untouched;
        EXPECT_FALSE(CEnumEngine().GetEnumFromText(kind, L"inches", &key)) << kind;
        EXPECT_EQ(key, UINT32_MAX) << kind;
    }
}

TEST(EnumEngineTest, AnEmptyTextIsFoundAtOnceAndLeavesTheKey)
{
    for (const std::int32_t kind : { 7, 8, 9 })
    {
        std::uint32_t key = Untouched;
        EXPECT_TRUE(CEnumEngine().GetEnumFromText(kind, L"", &key)) << kind;
        EXPECT_EQ(key, Untouched) << kind;
    }
}

TEST(EnumEngineTest, AKeyThatThereIsNotIsEnteredWithoutAText)
{
    CEnumEngine engine;
    std::uint32_t resourceId = Untouched;
    EXPECT_TRUE(engine.GetResourceId(7, 11, &resourceId));
    EXPECT_EQ(resourceId, 0u);
    std::wstring text = L"before";
    EXPECT_TRUE(engine.GetTextFromEnum(8, UINT32_MAX, text));
    EXPECT_EQ(text, L"");
    EXPECT_EQ(engine.KeysInSearchOrder(7), (Keys{ 0, 11, 8, 5, 2, 10, 7, 4, 1, 9, 6, 3 }));
    EXPECT_EQ(engine.KeysInSearchOrder(8).size(), 5u);
    // It stands in nobody's way.
    std::uint32_t key = Untouched;
    EXPECT_TRUE(engine.GetEnumFromText(7, L"inches", &key));
    EXPECT_EQ(key, 3u);
}

TEST(EnumEngineTest, OfOneBucketTheNewestEntryComesFirst)
{
    CEnumEngine engine;
    std::uint32_t resourceId = Untouched;
    engine.GetResourceId(8, 17, &resourceId);
    engine.GetResourceId(8, 34, &resourceId);
    engine.GetResourceId(8, 17, &resourceId);
    EXPECT_EQ(engine.KeysInSearchOrder(8), (Keys{ 34, 17, 0, 2, 1, 3 }));
}

TEST(EnumEngineTest, AKindWithoutUnitsHasNoTextNumber)
{
    CEnumEngine engine;
    for (const std::int32_t kind : { 0, 1, 6, 9 })
    {
        std::uint32_t resourceId = Untouched;
        EXPECT_FALSE(engine.GetResourceId(kind, 0, &resourceId)) << kind;
        EXPECT_EQ(resourceId, Untouched) << kind;
    }
}

TEST(EnumEngineTest, KindZeroLoadsNoTextAndOtherKindsAnEmptyOne)
{
    CEnumEngine engine;
    std::wstring text = L"before";
    EXPECT_FALSE(engine.GetTextFromEnum(0, 3, text));
    EXPECT_EQ(text, L"before");
    EXPECT_FALSE(engine.GetTextFromEnum(9, 3, text));
    EXPECT_EQ(text, L"");
}

TEST(EnumEngineTest, AValueHasUpToTenDecimalsAndNoUnit)
{
    const CEnumEngine engine;
    const auto format = [&engine](double value)
    {
        std::wstring text = L"before";
        engine.FormatValue(7, value, 3, text);
        return text;
    };
    EXPECT_EQ(format(1.5), L"1.5");
    EXPECT_EQ(format(2), L"2");
    EXPECT_EQ(format(100), L"100");
    EXPECT_EQ(format(0), L"0");
    EXPECT_EQ(format(-0.25), L"-0.25");
    EXPECT_EQ(format(0.12345678912), L"0.1234567891");
    EXPECT_EQ(format(1e-11), L"0");
    EXPECT_EQ(format(std::numeric_limits<double>::infinity()), L"inf");
    const std::wstring largest = format(-std::numeric_limits<double>::max());
    EXPECT_EQ(largest.size(), 310u);
    EXPECT_EQ(largest.substr(0, 8), L"-1797693");
}

TEST(EnumEngineTest, FormattingSucceedsForKindOneWithAUnitButFillsTheTextAlways)
{
    const CEnumEngine engine;
    std::wstring text;
    EXPECT_TRUE(engine.FormatValue(1, 2.5, 0, text));
    EXPECT_TRUE(engine.FormatValue(1, 2.5, 99, text));
    text.clear();
    EXPECT_FALSE(engine.FormatValue(1, 2.5, UINT32_MAX, text));
    EXPECT_EQ(text, L"2.5");
    for (const std::int32_t kind : { 0, 7, 8 })
    {
        text.clear();
        EXPECT_FALSE(engine.FormatValue(kind, 2.5, 0, text));
        EXPECT_EQ(text, L"2.5");
    }
}

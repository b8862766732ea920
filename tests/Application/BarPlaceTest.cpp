#include "Application/BarPlace.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

const std::wstring Text = L"layout2|name=mdiclient;caption=;state=256;dir=5;layer=0;row=0;pos=0|"
                          L"name=Quick;caption=Quick Tool Bar;state=11006;dir=4;layer=2;row=0;pos=7;prop=100000;"
                          L"bestw=44;besth=252;floatx=-1;floaty=-1;floatw=-1;floath=-1|"
                          L"name=Strip;caption=Commands;state=133629;dir=1;layer=1;row=3;pos=0;prop=100000;"
                          L"bestw=982;besth=72;floatx=200;floaty=-30;floatw=264;floath=253|dock_size(1,1,0)=72|";

std::optional<BarPlace> StripWith(const std::wstring& what, const std::wstring& with)
{
    std::wstring text = Text;
    const std::size_t at = text.find(what, text.find(L"name=Strip"));
    EXPECT_NE(at, std::wstring::npos) << what;
    return SavedBarPlace(text.replace(at, what.size(), with), L"Strip");
}

} // namespace

TEST(BarPlaceTest, EachBarHasItsOwnPlace)
{
    EXPECT_EQ(SavedBarPlace(Text, L"Strip"), (BarPlace{ true, true, 1, 1, 3, 0, 200, -30, 264, 253 }));
    EXPECT_EQ(SavedBarPlace(Text, L"Quick"), (BarPlace{ false, false, 4, 2, 0, 7, -1, -1, -1, -1 }));
}

TEST(BarPlaceTest, ABarThatIsNotThereOrNotWholeHasNoPlace)
{
    for (const wchar_t* const text :
         { L"", L"|", L"layout2|", L"nonsense", L"name=Strip;", L"name=Strip;state=4;dir=1" })
    {
        EXPECT_EQ(SavedBarPlace(text, L"Strip"), std::nullopt) << text;
    }
    EXPECT_EQ(SavedBarPlace(Text, L"Str"), std::nullopt);
    for (const wchar_t* const key :
         { L"state", L"dir", L"layer", L"row", L"pos", L"floatx", L"floaty", L"floatw", L"floath" })
    {
        EXPECT_EQ(StripWith(L";" + std::wstring(key) + L"=", L";other="), std::nullopt) << key;
    }
}

TEST(BarPlaceTest, APlaceThatIsNoSideOrNoNumberIsNone)
{
    for (const wchar_t* const side : { L"0", L"5", L"77", L"-1", L"", L"x", L"1x", L"99999999999", L"\u0661" })
    {
        EXPECT_EQ(StripWith(L"dir=1", std::wstring(L"dir=") + side), std::nullopt) << side;
    }
    EXPECT_EQ(StripWith(L"layer=1", L"layer=99999999999"), std::nullopt);
}

TEST(BarPlaceTest, NumbersThatAreTooLargeToBeMeantAreCut)
{
    EXPECT_EQ(StripWith(L"layer=1", L"layer=2000000000")->layer, 100);
    EXPECT_EQ(StripWith(L"layer=1", L"layer=-5")->layer, 0);
    EXPECT_EQ(StripWith(L"row=3", L"row=2000000000")->row, 100);
    EXPECT_EQ(StripWith(L"pos=0", L"pos=-1")->position, 0);
    EXPECT_EQ(StripWith(L"floatx=200", L"floatx=2000000000")->floatingX, 32000);
    EXPECT_EQ(StripWith(L"floatw=264", L"floatw=2000000000")->floatingWidth, 32000);
}

#include "Explorer/FoldedText.h"

#include <gtest/gtest.h>

TEST(FoldedTextTest, CaseDoesNotMatter)
{
    EXPECT_EQ(FoldedText(L"Minimum WALL"), L"minimum wall");
}

TEST(FoldedTextTest, AccentsAreLeftOut)
{
    EXPECT_EQ(FoldedText(L"Épaisseur à côté, Größe, Łódź, şev"), L"epaisseur a cote, große, lodz, sev");
    EXPECT_EQ(FoldedText(L"ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÑÒÓÔÕÖØÙÚÛÜÝŸ"), L"aaaaaaceeeeiiiinoooooouuuuyy");
}

TEST(FoldedTextTest, AccentsThatStandForThemselvesAreLeftOutToo)
{
    EXPECT_EQ(FoldedText(L"e\u0301paisseur"), L"epaisseur");
    EXPECT_EQ(FoldedText(L"\u0301"), L"");
}

TEST(FoldedTextTest, TwoLettersInOneAndLettersOfTheirOwnStay)
{
    EXPECT_EQ(FoldedText(L"Œuvre, Ære, ß, ×÷"), L"œuvre, ære, ß, ×÷");
}

TEST(FoldedTextTest, LettersOfFullWidthAreThoseOfNormalWidth)
{
    EXPECT_EQ(FoldedText(L"ＡＢＣ　１２（ｘ）"), L"abc 12(x)");
}

TEST(FoldedTextTest, HiraganaIsKatakana)
{
    EXPECT_EQ(FoldedText(L"あなのちょっけい"), L"アナノチョッケイ");
    EXPECT_EQ(FoldedText(L"穴の直径"), L"穴ノ直径");
}

TEST(FoldedTextTest, KoreanAndChineseStayAsTheyAre)
{
    EXPECT_EQ(FoldedText(L"구멍 지름"), L"구멍 지름");
    EXPECT_EQ(FoldedText(L"孔直径"), L"孔直径");
}

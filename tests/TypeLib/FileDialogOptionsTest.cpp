#include "TypeLib/FileDialogOptions.h"

#include "Platform/Files.h"

#include <gtest/gtest.h>

namespace
{

using Filters = std::vector<FileFilter>;

const std::wstring Separator(1, Platform::PathSeparator);

std::wstring InFolder(const std::wstring& name)
{
    return Separator + L"a.folder" + Separator + name;
}

} // namespace

TEST(FileDialogRulesTest, OpeningNeedsAFileThatExists)
{
    const FileDialogRules rules = FileDialogRulesFor(true, 528388);
    EXPECT_EQ(rules, (FileDialogRules{ .fileMustExist = true, .folderMustExist = true }));
    EXPECT_EQ(FileDialogRulesFor(true, 0x81000), rules) << "the read-only box is no rule";
}

TEST(FileDialogRulesTest, SavingNeedsAFolderThatExistsAndAsksBeforeReplacing)
{
    EXPECT_EQ(FileDialogRulesFor(false, 2050),
              (FileDialogRules{ .folderMustExist = true, .asksBeforeReplacing = true }));
}

TEST(FileDialogRulesTest, AFlagOfTheOtherKindOrAnUnknownOneComesToNothing)
{
    EXPECT_EQ(FileDialogRulesFor(true, 0x2), FileDialogRules());
    EXPECT_EQ(FileDialogRulesFor(false, 0x1000), FileDialogRules());
    EXPECT_EQ(FileDialogRulesFor(true, 0), FileDialogRules());
    EXPECT_EQ(FileDialogRulesFor(false, 0xFFF7E7FD), FileDialogRules());
}

TEST(ParseFileFiltersTest, PairsAreReadUpToTheClosing)
{
    EXPECT_EQ(ParseFileFilters(L"Rule Modules(*.dll)|*.dll||"), (Filters{ { L"Rule Modules(*.dll)", L"*.dll" } }));
    EXPECT_EQ(ParseFileFilters(L"Type Libraries(*.olb;*.tlb)|*.olb;*.tlb|All Files(*.*)|*.*||"),
              (Filters{ { L"Type Libraries(*.olb;*.tlb)", L"*.olb;*.tlb" }, { L"All Files(*.*)", L"*.*" } }));
}

TEST(ParseFileFiltersTest, WhatFollowsTheClosingIsNotRead)
{
    EXPECT_EQ(ParseFileFilters(L"A|*.a||B|*.b||"), (Filters{ { L"A", L"*.a" } }));
}

TEST(ParseFileFiltersTest, AnEmptyTextOrNothingButTheClosingHasNoPairs)
{
    for (const wchar_t* const text : { L"", L"|", L"||", L"|||", L"||A|*.a||" })
    {
        EXPECT_EQ(ParseFileFilters(text), Filters()) << text;
    }
}

TEST(ParseFileFiltersTest, WithoutAClosingThePairsEndWithTheText)
{
    EXPECT_EQ(ParseFileFilters(L"A|*.a"), (Filters{ { L"A", L"*.a" } }));
    EXPECT_EQ(ParseFileFilters(L"A|*.a|"), (Filters{ { L"A", L"*.a" } }));
    EXPECT_EQ(ParseFileFilters(L"A|*.a|B|*.b"), (Filters{ { L"A", L"*.a" }, { L"B", L"*.b" } }));
}

TEST(ParseFileFiltersTest, ANameWithoutAPatternIsLeftOut)
{
    EXPECT_EQ(ParseFileFilters(L"A"), Filters());
    EXPECT_EQ(ParseFileFilters(L"A||"), Filters());
    EXPECT_EQ(ParseFileFilters(L"A|*.a|B"), (Filters{ { L"A", L"*.a" } }));
    EXPECT_EQ(ParseFileFilters(L"A|*.a|B||"), (Filters{ { L"A", L"*.a" } }));
}

TEST(ParseFileFiltersTest, TheTextOfOneChoiceReadsBackAsIt)
{
    const FileFilter filter{ L"R\u00E8gles (*.vrf)", L"*.vrf" };
    EXPECT_EQ(FileFilterText(filter), L"R\u00E8gles (*.vrf)|*.vrf||");
    EXPECT_EQ(ParseFileFilters(FileFilterText(filter)), Filters{ filter });
}

TEST(WithDefaultExtensionTest, ANameWithoutAnExtensionGetsIt)
{
    EXPECT_EQ(WithDefaultExtension(InFolder(L"rules"), L"vrf"), InFolder(L"rules.vrf"));
    EXPECT_EQ(WithDefaultExtension(L"rules", L"vrf"), L"rules.vrf");
    EXPECT_EQ(WithDefaultExtension(InFolder(L"rules."), L"vrf"), InFolder(L"rules.vrf"));
    EXPECT_EQ(WithDefaultExtension(InFolder(L".rules"), L"vrf"), InFolder(L".rules.vrf"));
}

TEST(WithDefaultExtensionTest, ANameWithAnExtensionKeepsItWhateverItIs)
{
    EXPECT_EQ(WithDefaultExtension(InFolder(L"rules.VRF"), L"vrf"), InFolder(L"rules.VRF"));
    EXPECT_EQ(WithDefaultExtension(InFolder(L"rules.xml"), L"vrf"), InFolder(L"rules.xml"));
    EXPECT_EQ(WithDefaultExtension(InFolder(L".rules.x"), L"vrf"), InFolder(L".rules.x"));
}

TEST(WithDefaultExtensionTest, WithoutADefaultOrANameNothingIsAdded)
{
    EXPECT_EQ(WithDefaultExtension(InFolder(L"rules"), L""), InFolder(L"rules"));
    EXPECT_EQ(WithDefaultExtension(InFolder(L"rules."), L""), InFolder(L"rules."));
    EXPECT_EQ(WithDefaultExtension(InFolder(L""), L"vrf"), InFolder(L""));
    EXPECT_EQ(WithDefaultExtension(L"", L"vrf"), L"");
}

// The pictures of commands: there for each, in colours that show on the user's background.

#include "Application/CommandIcons.h"

#include "Application/Commands.h"
#include "Application/IconSources.h"
#include "tests/Support/WindowTest.h"

#include <gtest/gtest.h>

#include <wx/image.h>

#include <set>
#include <string>

namespace
{

class CommandIconsTest : public WindowTest
{
protected:
    /// Colours of the points that are not mixed with the background.
    static std::set<std::string> SolidColours(const wxBitmapBundle& picture, int size)
    {
        std::set<std::string> colours;
        const wxImage image = picture.GetBitmap({ size, size }).ConvertToImage();
        for (int x = 0; x < image.GetWidth(); ++x)
        {
            for (int y = 0; y < image.GetHeight(); ++y)
            {
                if (!image.HasAlpha() || image.GetAlpha(x, y) == wxIMAGE_ALPHA_OPAQUE)
                {
                    const wxColour colour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
                    colours.insert(colour.GetAsString(wxC2S_HTML_SYNTAX).ToStdString());
                }
            }
        }
        return colours;
    }
};

TEST_F(CommandIconsTest, EveryCommandHasAPicture)
{
    for (const Command& command : CommandTable)
    {
        EXPECT_TRUE(CommandIcon(command.id).IsOk()) << command.icon;
    }
    for (const int command : { CommandEditRuleHere, CommandTickRule, CommandSelectAllRules })
    {
        EXPECT_TRUE(CommandIcon(command).IsOk()) << command;
    }
}

TEST_F(CommandIconsTest, WhatIsNoCommandHasNone)
{
    EXPECT_FALSE(CommandIcon(wxID_NONE).IsOk());
    EXPECT_FALSE(CommandIcon(wxID_PREVIEW).IsOk());
    EXPECT_FALSE(NamedIcon("no-such-picture").IsOk());
    EXPECT_FALSE(NamedIcon("").IsOk());
}

TEST_F(CommandIconsTest, APictureHasTheSizeThatItsScaleAsksFor)
{
    for (const int size : { 16, 24, 32, 48 })
    {
        const wxBitmap bitmap = CommandIcon(wxID_OPEN).GetBitmap({ size, size });
        EXPECT_EQ(bitmap.GetWidth(), size);
        EXPECT_EQ(bitmap.GetHeight(), size);
    }
    EXPECT_EQ(CommandIcon(wxID_OPEN).GetDefaultSize(), wxSize(16, 16));
}

TEST_F(CommandIconsTest, LinesHaveTheColourThatIsAskedForAndTheAccentFollowsIt)
{
    for (const IconSource& icon : IconSources)
    {
        if (icon.name == "program")
        {
            continue;
        }
        const std::set<std::string> dark = SolidColours(NamedIcon(icon.name, wxColour(0x10, 0x20, 0x30)), 64);
        EXPECT_TRUE(dark.contains("#102030") && dark.contains("#1F6FC6")) << icon.name;
        const std::set<std::string> light = SolidColours(NamedIcon(icon.name, wxColour(0xF0, 0xE0, 0xD0)), 64);
        EXPECT_TRUE(light.contains("#F0E0D0") && light.contains("#6CB2FF")) << icon.name;
        EXPECT_FALSE(light.contains("#1F6FC6")) << icon.name;
    }
}

TEST_F(CommandIconsTest, AThemeWhoseTextHasTheAccentsColourKeepsBothApart)
{
    const std::set<std::string> colours = SolidColours(NamedIcon("open", wxColour(0x2a, 0x78, 0xd0)), 64);
    EXPECT_TRUE(colours.contains("#2A78D0") && colours.contains("#1F6FC6"));
}

TEST_F(CommandIconsTest, TheProgramsPictureHasItsOwnColoursAndComesInTheSizesOfWindows)
{
    EXPECT_TRUE(SolidColours(ProgramPicture(), 64).contains("#FFFFFF"));
    const wxIconBundle icons = ProgramIcons();
    for (const int size : { 16, 32, 48, 256 })
    {
        const wxIcon icon = icons.GetIcon({ size, size }, wxIconBundle::FALLBACK_NONE);
        ASSERT_TRUE(icon.IsOk()) << size;
        EXPECT_EQ(icon.GetWidth(), size);
    }
    EXPECT_TRUE(ProgramIcons(32).GetIcon(wxSize(32, 32), wxIconBundle::FALLBACK_NONE).IsOk());
    EXPECT_FALSE(ProgramIcons(32).GetIcon(wxSize(48, 48), wxIconBundle::FALLBACK_NONE).IsOk());
}

} // namespace

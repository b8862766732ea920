#include "Application/ToolkitTexts.h"

#include "tests/Utilities/LanguageInUse.h"

#include <wx/translation.h>

#include <gtest/gtest.h>

namespace
{

class ToolkitTextsTest : public testing::Test
{
protected:
    void TearDown() override { wxTranslations::Set(nullptr); }
};

} // namespace

TEST_F(ToolkitTextsTest, TheToolkitSpeaksTheLanguageInUse)
{
    const LanguageInUse french(FRENCH_LIBRARY);
    TranslateToolkit();
    EXPECT_EQ(wxGetTranslation("Save As"), wxString(L"Enregistrer sous"));
    EXPECT_EQ(wxGetTranslation("no text of this program"), "no text of this program");
}

TEST_F(ToolkitTextsTest, InEnglishTheToolkitsOwnTextsServe)
{
    const LanguageInUse english(ENGLISH_LIBRARY);
    TranslateToolkit();
    EXPECT_EQ(wxTranslations::Get(), nullptr);
    EXPECT_EQ(wxGetTranslation("Save As"), "Save As");
}

#include "Document/UnitSettingDlg.h"

#include "Platform/Files.h"
#include "tests/Support/OwnSettings.h"
#include "tests/Support/TestFiles.h"
#include "Utilities/Texts.h"

#include <wx/choice.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace
{

/// The dialog on the screen: `act` runs once it has the keyboard.
class ShownUnits
{
public:
    explicit ShownUnits(structRulesUnit start) : units(start), dialog(nullptr, units)
    {
        for (wxWindow* const child : dialog.GetChildren())
        {
            if (auto* const list = dynamic_cast<wxChoice*>(child))
            {
                lists.push_back(list);
            }
        }
    }

    int Run(const std::function<void()>& act)
    {
        dialog.Bind(wxEVT_IDLE,
                    [this, act, done = false](wxIdleEvent& event) mutable
                    {
                        // The list that has the keyboard is no window of the toolkit's on every system.
                        if (done || !dialog.IsActive() || wxWindow::FindFocus() == dialog.FindWindow(wxID_OK))
                        {
                            event.RequestMore(!done);
                            return;
                        }
                        done = true;
                        act();
                    });
        return dialog.ShowModal();
    }

    void Click(int id)
    {
        wxCommandEvent event(wxEVT_BUTTON, id);
        event.SetEventObject(dialog.FindWindow(id));
        dialog.GetEventHandler()->ProcessEvent(event);
    }

    void Press(int key, int modifiers = 0)
    {
        wxUIActionSimulator().Char(key, modifiers);
        wxYield(); // the key comes back as an event
    }

    wxChoice& Linear() { return *lists.at(0); }
    wxChoice& Angular() { return *lists.at(1); }

    OwnSettings settings;
    structRulesUnit units;
    CQOXUnitSettingDlg dialog;
    std::vector<wxChoice*> lists; // owned by the dialog
};

std::vector<std::wstring> TextsOf(const wxChoice& list)
{
    std::vector<std::wstring> texts;
    for (const wxString& text : list.GetStrings())
    {
        texts.push_back(text.ToStdWstring());
    }
    return texts;
}

} // namespace

TEST(UnitSettingDlgTest, TheListsHoldTheUnitsInTheirOrderWithThePresentOnesChosen)
{
    ShownUnits shown({ 3, 2 });
    EXPECT_EQ(TextsOf(shown.Linear()),
              (std::vector<std::wstring>{ L"angstroms", L"nanometers", L"microns", L"millimeters", L"centimeters",
                                          L"meters", L"microinches", L"mils", L"inches", L"feet" }));
    EXPECT_EQ(TextsOf(shown.Angular()),
              (std::vector<std::wstring>{ L"degrees", L"degrees/minutes", L"degrees/minutes/seconds", L"radians" }));
    EXPECT_EQ(shown.Linear().GetStringSelection(), "inches");
    EXPECT_EQ(shown.Angular().GetStringSelection(), "degrees/minutes/seconds");
    EXPECT_EQ(shown.dialog.GetTitle(), LoadText(TextId::UnitSettingsTitle));
}

TEST(UnitSettingDlgTest, OkTakesWhatIsChosenAndStoresIt)
{
    ShownUnits shown({ 0, 0 });
    EXPECT_EQ(shown.Run(
                  [&shown]
                  {
                      shown.Linear().SetSelection(9);
                      shown.Angular().SetSelection(3);
                      shown.Click(wxID_OK);
                  }),
              wxID_OK);
    EXPECT_EQ(shown.units, (structRulesUnit{ 4, 3 }));
    const std::string stored = ReadBytes(shown.settings.UnitsFile());
    EXPECT_NE(stored.find("<Linear>feet</Linear>"), std::string::npos) << stored;
    EXPECT_NE(stored.find("<Angular>radians</Angular>"), std::string::npos) << stored;
}

TEST(UnitSettingDlgTest, CancelChangesAndStoresNothing)
{
    ShownUnits shown({ 3, 0 });
    EXPECT_EQ(shown.Run(
                  [&shown]
                  {
                      shown.Linear().SetSelection(0);
                      shown.Angular().SetSelection(3);
                      shown.Click(wxID_CANCEL);
                  }),
              wxID_CANCEL);
    EXPECT_EQ(shown.units, (structRulesUnit{ 3, 0 }));
    EXPECT_FALSE(Platform::PathExists(shown.settings.UnitsFile()));
}

TEST(UnitSettingDlgTest, FeetAndInchesLeaveTheListWithoutAChoiceAndSurviveOk)
{
    ShownUnits shown({ 5, 0 });
    EXPECT_EQ(shown.Linear().GetSelection(), wxNOT_FOUND);
    EXPECT_EQ(shown.Run(
                  [&shown]
                  {
                      shown.Angular().SetSelection(3);
                      shown.Click(wxID_OK);
                  }),
              wxID_OK);
    EXPECT_EQ(shown.units, (structRulesUnit{ 5, 3 }));
    EXPECT_NE(ReadBytes(shown.settings.UnitsFile()).find("<Linear>feet &amp; inches</Linear>"), std::string::npos);
}

TEST(UnitSettingDlgTest, TheKeyboardGoesFromTheLengthsToTheAngles)
{
    ShownUnits shown({ 0, 0 });
    const int result = shown.Run(
        [&shown]
        {
            shown.Press(WXK_DOWN); // centimeters
            shown.Press(WXK_TAB);
            shown.Press(WXK_DOWN); // degrees/minutes
            shown.Click(wxID_OK);
        });
    EXPECT_EQ(result, wxID_OK);
    EXPECT_EQ(shown.units, (structRulesUnit{ 1, 1 }));
}

TEST(UnitSettingDlgTest, TheLettersOfTheLabelsAndOfTheButtonLeadThere)
{
    ShownUnits shown({ 0, 0 });
    const int result = shown.Run(
        [&shown]
        {
            shown.Press('A', wxMOD_ALT);
            shown.Press(WXK_DOWN);
            shown.Press('L', wxMOD_ALT);
            shown.Press(WXK_DOWN);
            shown.Press('O', wxMOD_ALT);
        });
    EXPECT_EQ(result, wxID_OK);
    EXPECT_EQ(shown.units, (structRulesUnit{ 1, 1 }));
}

TEST(UnitSettingDlgTest, TheEscapeKeyIsCancelAndOkIsTheDefaultButton)
{
    ShownUnits shown({ 0, 0 });
    const int result = shown.Run(
        [&shown]
        {
            EXPECT_EQ(shown.dialog.GetDefaultItem(), shown.dialog.FindWindow(wxID_OK));
            shown.Press(WXK_DOWN);
            shown.Press(WXK_ESCAPE);
        });
    EXPECT_EQ(result, wxID_CANCEL);
    EXPECT_EQ(shown.units, (structRulesUnit{ 0, 0 }));
}

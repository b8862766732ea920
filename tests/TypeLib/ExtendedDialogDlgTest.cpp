#include "TypeLib/ExtendedDialogDlg.h"

#include "Platform/FilePattern.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"
#include "Utilities/Texts.h"

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace
{

constexpr int PollMilliseconds = 20;
constexpr std::chrono::seconds Limit{ 60 };

// The dialog reads folders beside its loop and drops a key that comes at the wrong moment.
constexpr std::chrono::seconds KeyIsLost{ 5 };

/// Answers the boxes over a file dialog, one after the other, and notes what they said.
class BoxAnswers : private wxModalDialogHook
{
public:
    explicit BoxAnswers(std::vector<int> answers) : m_answers(std::move(answers)) { Register(); }
    ~BoxAnswers() override { Unregister(); }
    BoxAnswers(const BoxAnswers&) = delete;
    BoxAnswers& operator=(const BoxAnswers&) = delete;

    std::vector<wxString> messages;
    std::vector<wxString> captions;

private:
    int Enter(wxDialog* dialog) override
    {
        auto* const box = dynamic_cast<wxMessageDialog*>(dialog);
        if (box == nullptr)
        {
            return wxID_NONE; // is shown
        }
        messages.push_back(box->GetMessage());
        captions.push_back(box->GetTitle());
        return messages.size() <= m_answers.size() ? m_answers[messages.size() - 1] : wxID_CANCEL;
    }

    std::vector<int> m_answers;
};

/// A dialog that is wholly the system's: it comes back with a choice, and nothing is heard of it before.
class SystemDialog : public CExtendedDialogDlg
{
public:
    SystemDialog(const std::wstring& folder, std::vector<std::wstring> choices)
        : CExtendedDialogDlg(1, folder, L"Choose Rules", L"vrf", nullptr, FileDialogFlags::ForOpening,
                             L"Rules (*.vrf)|*.vrf||", nullptr),
          m_choices(std::move(choices))
    {
    }

    int ShowModal() override { return m_shown++ < m_choices.size() ? wxID_OK : wxID_CANCEL; }
    wxString GetPath() const override { return m_choices.at(m_shown - 1); }

    std::size_t TimesShown() const { return m_shown; }

private:
    std::vector<std::wstring> m_choices;
    std::size_t m_shown = 0;
};

/// What the user does: one step after the other, each as soon as its condition holds.
struct Step
{
    std::function<bool()> when;
    std::function<void()> act;
    bool isKey = false; ///< May be done again if nothing comes of it.
};

void Press(int key)
{
    wxUIActionSimulator().Char(key);
}

class ExtendedDialogDlgTest : public testing::Test
{
protected:
    ExtendedDialogDlgTest()
    {
        owner = new wxFrame(nullptr, wxID_ANY, "Owner"); // destroyed below
        field = new wxTextCtrl(owner, wxID_ANY);         // owned by the frame
        owner->Show();
        field->SetFocus();
        WaitFor([this] { return owner->IsActive() && field->HasFocus(); });
    }
    ~ExtendedDialogDlgTest() override
    {
        dialog.reset(); // before its owner
        owner->Destroy();
        wxYield();
    }

    static void WaitFor(const std::function<bool()>& condition)
    {
        const auto end = std::chrono::steady_clock::now() + Limit;
        while (!condition())
        {
            ASSERT_LT(std::chrono::steady_clock::now(), end);
            wxYield();
        }
    }

    void MakeOpening(const std::wstring& filter = L"Rules (*.vrf)|*.vrf|All (*)|*||")
    {
        WriteBytes(folder.File(L"first.vrf"), "");
        dialog = std::make_unique<CExtendedDialogDlg>(1, folder.Path(), L"Choose Rules", L"vrf", L"first.vrf",
                                                      FileDialogFlags::ForOpening, filter, owner);
    }

    void MakeSaving(const wchar_t* extension = L"vrf", const wchar_t* name = L"first.vrf")
    {
        dialog = std::make_unique<CExtendedDialogDlg>(0, folder.Path(), L"Save Rules", extension, name,
                                                      FileDialogFlags::ForSaving, L"Rules (*.vrf)|*.vrf||", owner);
    }

    /// True once the dialog has the keyboard: it takes it from its owner in one go.
    bool IsUp() const { return dialog->IsShown() && !owner->IsActive(); }

    /// True once the dialog takes this for the chosen path.
    bool Chosen(const std::wstring& path) const { return dialog->GetPath().ToStdWstring() == path; }

    /// Same once it has read its folder; what is typed before isn't always taken up.
    bool IsReady() const { return IsUp() && Chosen(folder.File(L"first.vrf")); }

    /// The steps of typing a path, which Return then ends.
    std::vector<Step> Typing(const std::wstring& path)
    {
        return { { [this] { return IsReady(); },
                   [this, path]
                   {
                       wxUIActionSimulator keys;
                       if (dialog->HasFdFlag(wxFD_SAVE))
                       {
                           keys.Char('A', wxMOD_CONTROL); // of the name that is there only a part is selected
                       }
                       keys.Text(wxString(path).utf8_str());
                   } },
                 { [this, path] { return Chosen(path); }, [] { Press(WXK_RETURN); }, true } };
    }

    /// Runs the dialog with a user who does the steps.
    CExtendedDialogDlg::Result Run(std::vector<Step> steps)
    {
        wxTimer timer;
        std::size_t next = 0;
        const auto end = std::chrono::steady_clock::now() + Limit;
        auto acted = std::chrono::steady_clock::now();
        timer.Bind(wxEVT_TIMER,
                   [&](wxTimerEvent&)
                   {
                       const auto now = std::chrono::steady_clock::now();
                       if (now > end && dialog->IsModal())
                       {
                           ADD_FAILURE() << "step " << next << " was not reached; path " << dialog->GetPath();
                           dialog->EndModal(wxID_CANCEL);
                           timer.Stop();
                       }
                       else if (next < steps.size() && steps[next].when())
                       {
                           steps[next++].act();
                           acted = now;
                       }
                       else if (next > 0 && steps[next - 1].isKey && now > acted + KeyIsLost)
                       {
                           steps[next - 1].act();
                           acted = now;
                       }
                   });
        timer.Start(PollMilliseconds);
        const CExtendedDialogDlg::Result result = dialog->DoModal();
        EXPECT_EQ(next, steps.size());
        return result;
    }

    std::wstring ChosenPath() const
    {
        std::wstring path = L"untouched";
        dialog->GetPathName(path);
        return path;
    }

    TemporaryFolder folder;
    wxFrame* owner = nullptr;
    wxTextCtrl* field = nullptr;
    std::unique_ptr<CExtendedDialogDlg> dialog;
};

} // namespace

TEST_F(ExtendedDialogDlgTest, TheResultsAreOneAndTwo)
{
    EXPECT_EQ(static_cast<int>(CExtendedDialogDlg::Confirmed), 1);
    EXPECT_EQ(static_cast<int>(CExtendedDialogDlg::GivenUp), 2);
}

TEST_F(ExtendedDialogDlgTest, FlagsCaptionFolderAndFiltersAreTheDialogs)
{
    MakeOpening();
    EXPECT_EQ(dialog->GetMessage(), "Choose Rules");
    EXPECT_EQ(dialog->GetWildcard().ToStdWstring(),
              L"Rules (*.vrf)|" + Platform::FilePattern(L"*.vrf") + L"|All (*)|*");
    EXPECT_EQ(dialog->GetDirectory().ToStdWstring(), folder.Path());
    EXPECT_TRUE(dialog->HasFdFlag(wxFD_OPEN));
    EXPECT_FALSE(dialog->HasFdFlag(wxFD_FILE_MUST_EXIST)) << "the toolkit's check comes before the extension";
    EXPECT_FALSE(dialog->HasFdFlag(wxFD_MULTIPLE));
    MakeSaving(nullptr, L"rules.vrf");
    EXPECT_EQ(dialog->GetMessage(), "Save Rules");
    EXPECT_EQ(dialog->GetFilename(), "rules.vrf");
    EXPECT_TRUE(dialog->HasFdFlag(wxFD_SAVE));
    EXPECT_TRUE(dialog->HasFdFlag(wxFD_OVERWRITE_PROMPT));
}

TEST_F(ExtendedDialogDlgTest, ABadFilterShowsAllFiles)
{
    for (const wchar_t* const filter : { L"", L"||", L"Rules", L"Rules||" })
    {
        MakeOpening(filter);
        const wxString all = dialog->GetWildcard();
        EXPECT_TRUE(all.empty() || all.AfterLast('|') == wxFileSelectorDefaultWildcardStr) << filter << ": " << all;
    }
}

TEST_F(ExtendedDialogDlgTest, ATypedPathIsOpenedByTheReturnKey)
{
    const std::wstring path = folder.File(L"rules.vrf");
    WriteBytes(path, "");
    MakeOpening();
    EXPECT_EQ(Run(Typing(path)), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(ChosenPath(), path);
}

TEST_F(ExtendedDialogDlgTest, AFileWithoutAnExtensionIsOpenedAlsoBesideOneWithIt)
{
    const std::wstring path = folder.File(L"rules");
    WriteBytes(path, "");
    WriteBytes(path + L".vrf", "");
    // Both are offered, so that the dialog completes what is typed to neither.
    MakeOpening(L"All (*)|*||");
    EXPECT_EQ(Run(Typing(path)), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(ChosenPath(), path);
}

TEST_F(ExtendedDialogDlgTest, ANameWithoutAnExtensionOpensTheFileWithTheDefaultOne)
{
    // Two begin so, so that the dialog completes what is typed to neither.
    WriteBytes(folder.File(L"rules.vrf"), "");
    WriteBytes(folder.File(L"rules2.vrf"), "");
    BoxAnswers answers({});
    MakeOpening();
    EXPECT_EQ(Run(Typing(folder.File(L"rules"))), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(ChosenPath(), folder.File(L"rules.vrf"));
    EXPECT_EQ(answers.messages, std::vector<wxString>());
}

TEST_F(ExtendedDialogDlgTest, AFileWhoseExtensionIsInCapitalsIsOffered)
{
    const std::wstring path = folder.File(L"bracket.VRF");
    WriteBytes(path, "");
    MakeOpening(L"Rules (*.vrf)|*.vrf||");
    std::vector<Step> steps = Typing(folder.File(L"bra"));
    steps.back().when = [this, path] { return Chosen(path); }; // what is typed is completed to what is listed
    EXPECT_EQ(Run(steps), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(ChosenPath(), path);
}

TEST_F(ExtendedDialogDlgTest, AFileThatDoesNotExistIsRefusedAndTheDialogStays)
{
    for (const wchar_t* const name : { L"none.vrf", L"none" })
    {
        BoxAnswers answers({ wxID_OK });
        MakeOpening();
        std::vector<Step> steps = Typing(folder.File(name));
        steps.push_back({ [&] { return !answers.messages.empty(); },
                          [this]
                          {
                              EXPECT_TRUE(dialog->IsModal());
                              Press(WXK_ESCAPE);
                          } });
        // The first time the key only takes away what was typed.
        steps.push_back({ [this] { return Chosen(L""); }, [] { Press(WXK_ESCAPE); } });
        EXPECT_EQ(Run(steps), CExtendedDialogDlg::GivenUp);
        EXPECT_EQ(answers.messages, std::vector<wxString>{ LoadText(TextId::ToolkitFileMustExist) });
        EXPECT_EQ(answers.captions, std::vector<wxString>{ L"Choose Rules" });
        EXPECT_EQ(ChosenPath(), L"untouched");
    }
}

TEST_F(ExtendedDialogDlgTest, ADialogThatIsOnlyHeardOfAfterwardsIsShownAgainUntilTheFileExists)
{
    WriteBytes(folder.File(L"rules.vrf"), "");
    BoxAnswers answers({ wxID_OK });
    SystemDialog system(folder.Path(), { folder.File(L"none"), folder.File(L"rules") });
    EXPECT_EQ(system.DoModal(), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(system.TimesShown(), 2u);
    std::wstring path;
    system.GetPathName(path);
    EXPECT_EQ(path, folder.File(L"rules.vrf"));
    EXPECT_EQ(answers.messages, std::vector<wxString>{ LoadText(TextId::ToolkitFileMustExist) });
}

TEST_F(ExtendedDialogDlgTest, WithoutTheRuleAFileThatDoesNotExistIsChosen)
{
    WriteBytes(folder.File(L"first.vrf"), "");
    dialog = std::make_unique<CExtendedDialogDlg>(1, folder.Path(), L"Choose Rules", L"vrf", L"first.vrf",
                                                  FileDialogFlags::PathMustExist, L"Rules (*.vrf)|*.vrf||", owner);
    EXPECT_EQ(Run(Typing(folder.File(L"none"))), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(ChosenPath(), folder.File(L"none.vrf"));
}

TEST_F(ExtendedDialogDlgTest, TheEscapeKeyGivesUpAndLeavesTheCallersPath)
{
    MakeSaving();
    EXPECT_EQ(Run({ { [this] { return IsUp(); }, [] { Press(WXK_ESCAPE); } } }), CExtendedDialogDlg::GivenUp);
    EXPECT_EQ(ChosenPath(), L"untouched");
}

TEST_F(ExtendedDialogDlgTest, TheOwnerIsDisabledMeanwhileAndTheKeyboardGoesBackToWhereItWas)
{
    MakeSaving();
    bool wasEnabled = true;
    Run({ { [this] { return IsUp(); },
            [&]
            {
                EXPECT_EQ(dialog->GetTitle(), "Save Rules");
                wasEnabled = owner->IsThisEnabled();
                Press(WXK_ESCAPE);
            } } });
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(owner->IsThisEnabled());
    WaitFor([this] { return field->HasFocus(); });
}

TEST_F(ExtendedDialogDlgTest, AnOwnerThatWasDisabledStaysSo)
{
    owner->Disable();
    MakeSaving();
    Run({ { [this] { return IsUp(); }, [] { Press(WXK_ESCAPE); } } });
    EXPECT_FALSE(owner->IsThisEnabled());
}

TEST_F(ExtendedDialogDlgTest, WhatHadTheKeyboardMayBeGoneAtTheEnd)
{
    MakeSaving();
    Run({ { [this] { return IsUp(); },
            [this]
            {
                field->Destroy();
                Press(WXK_ESCAPE);
            } } });
    EXPECT_TRUE(owner->IsThisEnabled());
}

TEST_F(ExtendedDialogDlgTest, ANameWithoutAnExtensionIsSavedWithTheDefaultOne)
{
    MakeSaving();
    EXPECT_EQ(Run(Typing(folder.File(L"rules"))), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(ChosenPath(), folder.File(L"rules.vrf"));
}

TEST_F(ExtendedDialogDlgTest, AnotherExtensionIsKeptAndWithoutADefaultNoneIsAdded)
{
    MakeSaving();
    EXPECT_EQ(Run(Typing(folder.File(L"rules.xml"))), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(ChosenPath(), folder.File(L"rules.xml"));
    MakeSaving(nullptr);
    EXPECT_EQ(Run(Typing(folder.File(L"rules"))), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(ChosenPath(), folder.File(L"rules"));
}

TEST_F(ExtendedDialogDlgTest, AFileThatOnlyTheDefaultExtensionNamesIsReplacedAfterAYes)
{
    // One that the filter leaves out, so that the dialog doesn't complete what is typed to its name.
    const std::wstring path = folder.File(L"rules.xml");
    WriteBytes(path, "before");
    BoxAnswers answers({ wxID_NO, wxID_YES });
    MakeSaving(L"xml");
    std::vector<Step> steps = Typing(folder.File(L"rules"));
    steps.push_back({ [&] { return answers.messages.size() == 1; }, [] { Press(WXK_RETURN); } });
    EXPECT_EQ(Run(steps), CExtendedDialogDlg::Confirmed);
    EXPECT_EQ(ChosenPath(), path);
    const std::vector<wxString> questions(2, FormatText(TextId::ReplaceFileQuestion, { L"rules.xml" }));
    EXPECT_EQ(answers.messages, questions) << "the first time the user thought better of it";
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new wxApp); // owned by the toolkit
    const wxInitializer toolkit(argc, argv);
    return toolkit.IsOk() ? RUN_ALL_TESTS() : 1;
}

#include "Application/AboutDlg.h"

#include "Application/CommandIcons.h"
#include "Explorer/Controls/HyperLink.h"
#include "Modules/ApplicationGlobals.h"
#include "Modules/HelpKey.h"
#include "Utilities/DialogButtons.h"
#include "Utilities/Texts.h"
#include "Utilities/WrappedLabel.h"

#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

namespace
{

// The version of the rule files and modules that the program goes with. They stay as they
// are: support staff tell generations of the rules apart by them.
constexpr const wchar_t* VersionText = L"v4.0";
constexpr const wchar_t* BuildText = L"4.0.0.3175";
constexpr const wchar_t* DateText = L"Mar 23 2016";

constexpr int Margin = 16;
constexpr int Gap = 10;
constexpr int TextWidth = 320;
constexpr int IconSize = 48;

} // namespace

CAboutDlg::CAboutDlg(wxWindow* parent)
    : wxDialog(parent, wxID_ANY, FormatText(TextId::AboutTitle, { LoadText(TextId::ApplicationTitle) }))
{
    auto* const name = new wxStaticText(
        this, wxID_ANY, LoadText(TextId::ApplicationTitle) + L" " + VersionText); // owned by the dialog, as all below
    name->SetFont(name->GetFont().Bold().Larger());
    auto* const build = new wxStaticText(this, wxID_ANY, FormatText(TextId::AboutBuild, { BuildText, DateText }));
    auto* const description = new wxStaticText(this, wxID_ANY, LoadText(TextId::AboutText));
    WrapLabel(*description, FromDIP(TextWidth));

    auto* const lines = new wxBoxSizer(wxVERTICAL);
    lines->Add(name, wxSizerFlags().Border(wxBOTTOM, FromDIP(Gap)));
    lines->Add(build, wxSizerFlags().Border(wxBOTTOM, FromDIP(Gap)));
    lines->Add(description, wxSizerFlags().Border(wxBOTTOM, FromDIP(Gap)));
    auto* const help = new CHyperLink(this, wxID_ANY, LoadText(TextId::AboutHelpLink));
    help->SetNotifyParent(true);
    help->AdaptColoursToWindow();
    lines->Add(help);
    Bind(EVT_HYPERLINK_CLICKED,
         [](wxCommandEvent&)
         {
             if (g_pApp != nullptr)
             {
                 g_pApp->ShowHelp(HelpTopic::Overview);
             }
         });

    auto* const columns = new wxBoxSizer(wxHORIZONTAL);
    columns->Add(new wxStaticBitmap(this, wxID_ANY, ProgramPicture(IconSize)),
                 wxSizerFlags().Border(wxRIGHT, FromDIP(Margin)));
    columns->Add(lines, wxSizerFlags(1));

    auto* const rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(columns, wxSizerFlags().Expand().Border(wxALL, FromDIP(Margin)));
    wxSizer* const buttons = CreateStdDialogButtonSizer(wxOK);
    DropSpaceAroundButtons(*buttons);
    rows->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(Margin)));
    LabelStandardButtons(*this);
    SetEscapeId(wxID_OK);
    FindWindow(wxID_OK)->SetFocus(); // not the link, which comes ahead of it
    ShowHelpOnF1(*this, HelpTopic::About);
    SetSizerAndFit(rows);
    CentreOnParent();
}

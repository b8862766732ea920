#include "Explorer/Controls/YesNoAllDlg.h"

#include "Modules/HelpKey.h"
#include "Utilities/Texts.h"

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include <array>

namespace
{

constexpr int Margin = 16;
constexpr int Gap = 10;
constexpr int ButtonGap = 6;
constexpr int TextWidth = 360;
constexpr int IconSize = 48;

struct AnswerButton
{
    int id;
    TextId text;
    YesNoAllAnswer answer;
};

constexpr std::array Buttons = {
    AnswerButton{ wxID_YES, TextId::ButtonYes, YesNoAllAnswer::Yes },
    AnswerButton{ wxID_YESTOALL, TextId::ButtonYesToAll, YesNoAllAnswer::YesToAll },
    AnswerButton{ wxID_NO, TextId::ButtonNo, YesNoAllAnswer::No },
    AnswerButton{ wxID_NOTOALL, TextId::ButtonNoToAll, YesNoAllAnswer::NoToAll },
};

} // namespace

CYesNoAllDlg::CYesNoAllDlg(const wxString& question, wxWindow* parent, HelpTopic topic)
    : wxDialog(parent, wxID_ANY, LoadText(TextId::ApplicationTitle))
{
    const wxBitmapBundle icon =
        wxArtProvider::GetBitmapBundle(wxART_QUESTION, wxART_MESSAGE_BOX, FromDIP(wxSize(IconSize, IconSize)));
    auto* const columns = new wxBoxSizer(wxHORIZONTAL); // owned by the dialog, as all below
    columns->Add(new wxStaticBitmap(this, wxID_ANY, icon), wxSizerFlags().Border(wxRIGHT, FromDIP(Margin)));
    auto* const text = new wxStaticText(this, wxID_ANY, wxString());
    text->SetLabelText(question); // names of files may hold &
    text->Wrap(FromDIP(TextWidth));
    columns->Add(text, wxSizerFlags(1).CentreVertical());

    auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
    for (const AnswerButton& entry : Buttons)
    {
        auto* const button = new wxButton(this, entry.id, LoadText(entry.text));
        button->Bind(wxEVT_BUTTON,
                     [this, answer = entry.answer](wxCommandEvent&)
                     {
                         m_answer = answer;
                         EndModal(wxID_OK);
                     });
        buttons->Add(button, wxSizerFlags().Border(wxLEFT, FromDIP(entry.id == wxID_YES ? 0 : ButtonGap)));
    }

    auto* const rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(Margin)));
    rows->Add(buttons, wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(Gap)));
    auto* const yes = static_cast<wxButton*>(FindWindow(wxID_YES));
    yes->SetDefault();
    yes->SetFocus();
    SetEscapeId(wxID_NO);
    ShowHelpOnF1(*this, topic);
    SetSizerAndFit(rows);
    CentreOnParent();
}

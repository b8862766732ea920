#include "Explorer/Controls/YesNoAllDlg.h"

#include "Modules/HelpKey.h"
#include "Utilities/LineBreaks.h"
#include "Utilities/Texts.h"

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include <array>
#include <cstddef>

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

/// The question in lines, without the middle of what is too long for a dialog: names come from files
/// and may have any length. Words that are wider than a line can't be broken.
wxString Fitting(const wxString& question, wxWindow& window, int width)
{
    constexpr std::size_t LongestStart = 400;
    constexpr std::size_t LongestEnd = 200; // what is asked stands there
    const wxString ellipsis(L'\u2026');
    const wxString cut = question.length() <= LongestStart + LongestEnd
                           ? question
                           : question.Left(LongestStart) + ellipsis + question.Right(LongestEnd);
    wxClientDC dc(&window);
    dc.SetFont(window.GetFont());
    const auto widthOf = [&dc](const std::wstring& line) { return dc.GetTextExtent(line).GetWidth(); };
    return wxControl::Ellipsize(BrokenIntoLines(cut.ToStdWstring(), width, widthOf), dc, wxELLIPSIZE_MIDDLE, width,
                                wxELLIPSIZE_FLAGS_NONE);
}

} // namespace

CYesNoAllDlg::CYesNoAllDlg(const wxString& question, wxWindow* parent, HelpTopic topic)
    : wxDialog(parent, wxID_ANY, LoadText(TextId::ApplicationTitle))
{
    const wxBitmapBundle icon =
        wxArtProvider::GetBitmapBundle(wxART_QUESTION, wxART_MESSAGE_BOX, FromDIP(wxSize(IconSize, IconSize)));
    auto* const columns = new wxBoxSizer(wxHORIZONTAL); // owned by the dialog, as all below
    columns->Add(new wxStaticBitmap(this, wxID_ANY, icon), wxSizerFlags().Border(wxRIGHT, FromDIP(Margin)));
    auto* const text = new wxStaticText(this, wxID_ANY, wxString());
    text->SetLabelText(Fitting(question, *text, FromDIP(TextWidth))); // names of files may hold &
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

#include "Application/CommandButtons.h"

#include "Application/CommandBars.h"
#include "Application/CommandIcons.h"
#include "Utilities/UnmeasuredSize.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/tglbtn.h>
#include <wx/wrapsizer.h>

#include <algorithm>

namespace
{

constexpr int Gap = 2;
constexpr int LabelGap = 4;

} // namespace

CommandButtons::CommandButtons(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE)
{
    Bind(wxEVT_BUTTON, &CommandButtons::OnButton, this);
    Bind(wxEVT_TOGGLEBUTTON, &CommandButtons::OnButton, this);
    Arrange();
}

wxAnyButton* CommandButtons::MakeButton(int command)
{
    const Command& row = *FindCommand(command);
    constexpr long Style = wxBORDER_NONE | wxBU_LEFT;
    // A label is shown as it is: what was an access key in the menu is none here.
    const wxString label = wxControl::EscapeMnemonics(ButtonLabelOf(row));
    wxAnyButton* button = nullptr; // owned by this window
    if (row.kind == wxITEM_CHECK)
    {
        button = new wxToggleButton(this, wxID_ANY, label, wxDefaultPosition, UnmeasuredSize, Style);
    }
    else
    {
        button = new wxButton(this, wxID_ANY, label, wxDefaultPosition, UnmeasuredSize, Style);
    }
    // Only now: made with it, a button of a number that the toolkit knows would get an access key.
    button->SetId(command);
    button->SetBitmap(CommandIcon(command, GetForegroundColour()));
    button->SetBitmapMargins(FromDIP(LabelGap), 0);
    button->SetToolTip(ToolTipOf(command));
    button->Bind(wxEVT_LEFT_DOWN,
                 [this](wxMouseEvent& event)
                 {
                     m_focusBefore = FindFocus();
                     event.Skip();
                 });
    return button;
}

void CommandButtons::Load(std::span<const int> commands)
{
    const bool hadFocus = IsDescendant(FindFocus());
    DestroyChildren();
    m_buttons.clear();
    for (const int command : commands)
    {
        if (FindCommand(command) != nullptr)
        {
            m_buttons.push_back(MakeButton(command));
        }
    }
    Arrange();
    UpdateWindowUI(wxUPDATE_UI_RECURSE);
    if (hadFocus)
    {
        FocusFirst();
    }
}

void CommandButtons::LoadPictures()
{
    for (wxAnyButton* const button : m_buttons)
    {
        button->SetBitmap(CommandIcon(button->GetId(), GetForegroundColour()));
    }
}

void CommandButtons::SetButtonSize(int width, int height)
{
    const wxSize size = FromDIP(wxSize(width, height));
    if (size != m_buttonSize)
    {
        m_buttonSize = size;
        Arrange();
    }
}

void CommandButtons::SetVertical(bool vertical)
{
    if (vertical != m_vertical)
    {
        m_vertical = vertical;
        Arrange();
    }
}

void CommandButtons::Arrange()
{
    SetSizer(nullptr);        // lets go of the buttons
    wxSizer* sizer = nullptr; // owned by this window
    if (m_vertical)
    {
        sizer = new wxBoxSizer(wxVERTICAL);
    }
    else
    {
        sizer = new wxWrapSizer(wxHORIZONTAL, wxWRAPSIZER_DEFAULT_FLAGS & ~wxEXTEND_LAST_ON_EACH_LINE);
    }
    for (wxAnyButton* const button : m_buttons)
    {
        button->SetMinSize(wxDefaultSize);
        const wxSize best = button->GetBestSize();
        button->SetMinSize({ std::max(best.GetWidth(), m_buttonSize.GetWidth()),
                             std::max(best.GetHeight(), m_buttonSize.GetHeight()) });
        sizer->Add(button, wxSizerFlags().Expand().Border(wxRIGHT | wxBOTTOM, m_vertical ? 0 : FromDIP(Gap)));
    }
    SetSizer(sizer);
    Layout();
    InvalidateBestSize();
}

int CommandButtons::ButtonWidth() const
{
    int width = 0;
    for (const wxAnyButton* const button : m_buttons)
    {
        width = std::max(width, button->GetMinSize().GetWidth() + FromDIP(Gap));
    }
    return width;
}

int CommandButtons::ButtonHeight() const
{
    return m_buttons.empty() ? 0 : m_buttons.front()->GetMinSize().GetHeight() + FromDIP(Gap);
}

bool CommandButtons::FocusFirst()
{
    UpdateWindowUI(wxUPDATE_UI_RECURSE);
    for (wxAnyButton* const button : m_buttons)
    {
        if (button->IsThisEnabled())
        {
            button->SetFocus();
            return true;
        }
    }
    return false;
}

void CommandButtons::OnButton(wxCommandEvent& event)
{
    if (m_focusBefore && m_focusBefore->IsShownOnScreen())
    {
        m_focusBefore->SetFocus();
    }
    m_focusBefore = nullptr;
    wxCommandEvent command(wxEVT_MENU, event.GetId());
    command.SetEventObject(this);
    command.SetInt(event.GetInt());
    ProcessWindowEvent(command);
}

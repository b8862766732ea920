#include "Explorer/RuleEditorRow.h"

#include "Utilities/ScreenReader.h"
#include "Utilities/Texts.h"
#include "Utilities/WrappedLabel.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/combobox.h>
#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

namespace
{

constexpr int Gap = 6;
constexpr int LabelWidth = 210;
constexpr int FieldWidth = 330;
constexpr int NumberWidth = 190;
constexpr int RangeWidth = 190;
constexpr int LinesOfLongText = 3;

constexpr const wchar_t* DiffersMark = L" *";

/// For labels: a file may give texts of any length, and wrapping takes its time.
std::wstring Shortened(const std::wstring& text)
{
    constexpr std::size_t LongestLabel = 200;
    return text.size() <= LongestLabel ? text : text.substr(0, LongestLabel) + L"\u2026";
}

wxColour ErrorColour()
{
    return wxSystemSettings::GetAppearance().IsUsingDarkBackground() ? wxColour(255, 138, 128) : wxColour(176, 0, 32);
}

} // namespace

RuleEditorRow::RuleEditorRow(wxWindow& parent, wxSizer& grid, RuleEditModel& model, std::size_t index,
                             std::function<void()> onHeightChanged)
    : m_model(model), m_index(index), m_onHeightChanged(std::move(onHeightChanged))
{
    // Windows are made in the order of the keyboard, each label right before its field.
    wxSizerItem* label = nullptr;
    if (model.Kind(index) == ParamKind::YesNo)
    {
        grid.AddSpacer(0);
    }
    else
    {
        m_label = new wxStaticText(&parent, wxID_ANY, wxString()); // owned by the parent, as all below
        label = grid.Add(m_label, wxSizerFlags().Border(wxTOP));
    }
    wxSizer* const fieldLine = MakeFieldCell(parent, grid);

    auto* const range = new wxStaticText(&parent, wxID_ANY, wxString());
    range->SetLabelText(model.RangeText(index));
    WrapLabel(*range, parent.FromDIP(RangeWidth));
    wxSizerItem* const rangeItem = grid.Add(range, wxSizerFlags().Border(wxTOP));

    m_reset = new wxButton(&parent, wxID_ANY, LoadText(TextId::EditorReset));
    const wxString tip =
        FormatText(TextId::EditorTipReset, { Shortened(model.Label(index)), Shortened(model.DefaultText(index)) });
    m_reset->SetToolTip(tip);
    m_reset->SetName(tip);
    m_reset->Bind(wxEVT_BUTTON,
                  [this](wxCommandEvent&)
                  {
                      Reset();
                      FocusField(); // the button goes out of use
                  });
    grid.Add(m_reset, wxSizerFlags());

    // The field, and the first lines of the labels, stand on the middle of the button.
    const int lineHeight = m_reset->GetBestSize().GetHeight();
    fieldLine->SetMinSize(-1, lineHeight);
    const int aboveLabels = std::max(lineHeight - parent.GetCharHeight(), 0) / 2;
    rangeItem->SetBorder(aboveLabels);
    if (label != nullptr)
    {
        label->SetBorder(aboveLabels);
        // Room for the label when it is marked, so that nothing moves then. Measured here,
        // since some systems take another font into account only once a window is shown.
        ShowLabel(false);
        wxClientDC canvas(m_label);
        canvas.SetFont(m_label->GetFont());
        m_label->SetMinSize(canvas.GetMultiLineTextExtent(m_label->GetLabel()) + parent.FromDIP(wxSize(4, 0)));
    }
    ShowLabel(model.IsDefault(index));
    ShowState();
}

wxSizer* RuleEditorRow::MakeFieldCell(wxWindow& parent, wxSizer& grid)
{
    wxWindow* const field = MakeField(parent);
    const wxString unit = m_model.UnitSymbol(m_index);
    auto* const fieldAndUnit = new wxBoxSizer(wxHORIZONTAL);
    const bool narrow = m_model.Kind(m_index) == ParamKind::Length || m_model.Kind(m_index) == ParamKind::Angle ||
                        m_model.Kind(m_index) == ParamKind::Number || m_model.Kind(m_index) == ParamKind::Integer;
    fieldAndUnit->Add(field, wxSizerFlags(narrow ? 0 : 1).CentreVertical());
    if (!unit.empty())
    {
        fieldAndUnit->Add(new wxStaticText(&parent, wxID_ANY, unit),
                          wxSizerFlags().CentreVertical().Border(wxLEFT, parent.FromDIP(Gap)));
    }
    m_cell = new wxBoxSizer(wxVERTICAL);
    m_cell->SetMinSize(parent.FromDIP(FieldWidth), -1);
    m_cell->Add(fieldAndUnit, wxSizerFlags().Expand());
    grid.Add(m_cell, wxSizerFlags().Expand());
    return fieldAndUnit;
}

wxWindow* RuleEditorRow::MakeField(wxWindow& parent)
{
    wxWindow* field = nullptr;
    switch (m_model.Kind(m_index))
    {
    case ParamKind::YesNo:
        field = m_check = MakeCheckBox(parent);
        break;
    case ParamKind::Choice:
        field = m_choice = MakeChoice(parent);
        break;
    default:
        field = m_edit = MakeTextField(parent);
        break;
    }
    field->SetName(m_model.Label(m_index));
    // The label beside it is broken into lines and shortened.
    NameForScreenReaders(*field, wxControl::EscapeMnemonics(m_model.Label(m_index)));
    return field;
}

wxTextCtrl* RuleEditorRow::MakeTextField(wxWindow& parent)
{
    const std::wstring& text = m_model.Text(m_index);
    const bool isText = m_model.Kind(m_index) == ParamKind::Text;
    const bool hasLines = isText && text.find(L'\n') != std::wstring::npos;
    auto* const edit =
        new wxTextCtrl(&parent, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, hasLines ? wxTE_MULTILINE : 0);
    if (hasLines)
    {
        edit->SetMinSize(wxSize(-1, LinesOfLongText * edit->GetCharHeight() + parent.FromDIP(2 * Gap)));
    }
    else if (!isText)
    {
        edit->SetMinSize(parent.FromDIP(wxSize(NumberWidth, -1)));
    }
    edit->Bind(wxEVT_TEXT,
               [this](wxCommandEvent&)
               {
                   m_model.SetText(m_index, m_edit->GetValue().ToStdWstring());
                   ShowState();
               });
    return edit;
}

wxComboBox* RuleEditorRow::MakeChoice(wxWindow& parent)
{
    // A plain choice control doesn't tell on all systems that it has got the keyboard.
    auto* const choice =
        new wxComboBox(&parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0, nullptr, wxCB_READONLY);
    for (const std::wstring& option : m_model.Options(m_index))
    {
        choice->Append(option);
    }
    choice->SetSelection(choice->FindString(m_model.Text(m_index), true));
    // A long entry must not make the window wider than the screen.
    choice->SetMinSize(parent.FromDIP(wxSize(FieldWidth, -1)));
    choice->Bind(wxEVT_COMBOBOX,
                 [this](wxCommandEvent&)
                 {
                     m_model.SetText(m_index, m_choice->GetStringSelection().ToStdWstring());
                     ShowState();
                 });
    // Who turns the wheel wants to scroll, not to choose what happens to be below it.
    choice->Bind(wxEVT_MOUSEWHEEL,
                 [&parent](wxMouseEvent& event)
                 {
                     event.SetEventObject(&parent);
                     parent.ProcessWindowEvent(event);
                 });
    return choice;
}

wxCheckBox* RuleEditorRow::MakeCheckBox(wxWindow& parent)
{
    auto* const check = new wxCheckBox(&parent, wxID_ANY, wxString());
    check->SetValue(m_model.IsYes(m_index));
    check->Bind(wxEVT_CHECKBOX,
                [this](wxCommandEvent& event)
                {
                    m_model.SetYes(m_index, event.IsChecked());
                    ShowState();
                });
    return check;
}

void RuleEditorRow::Reset()
{
    m_model.Reset(m_index);
    TakeText();
}

void RuleEditorRow::TakeText()
{
    const wxString text = m_model.Text(m_index);
    if (m_edit != nullptr)
    {
        m_edit->ChangeValue(text);
    }
    else if (m_choice != nullptr)
    {
        m_choice->SetSelection(m_choice->FindString(text, true));
    }
    else
    {
        m_check->SetValue(m_model.IsYes(m_index));
    }
    ShowState();
}

void RuleEditorRow::FocusField()
{
    if (m_edit != nullptr)
    {
        m_edit->SetFocus();
        m_edit->SelectAll();
    }
    else if (m_choice != nullptr)
    {
        m_choice->SetFocus();
    }
    else
    {
        m_check->SetFocus();
    }
}

bool RuleEditorRow::Has(const wxWindow* window) const
{
    return window != nullptr && (window == m_edit || window == m_choice || window == m_check || window == m_reset);
}

wxString RuleEditorRow::HelpText() const
{
    wxString text = m_model.Help(m_index);
    const auto addLine = [&text](const wxString& line)
    {
        text += text.empty() ? wxString() : wxString("\n");
        text += line;
    };
    const std::wstring range = m_model.RangeText(m_index);
    const wxString defaultText = FormatText(TextId::EditorDefault, { m_model.DefaultText(m_index) });
    addLine(range.empty() ? defaultText
                          : wxString(FormatText(TextId::EditorAllowed, { range })) + L"    " + defaultText);
    if (m_model.Kind(m_index) == ParamKind::Length)
    {
        addLine(LoadText(TextId::EditorTypeLengths));
    }
    else if (m_model.Kind(m_index) == ParamKind::Angle)
    {
        addLine(LoadText(TextId::EditorTypeAngles));
    }
    return text;
}

void RuleEditorRow::ShowState()
{
    const bool isDefault = m_model.IsDefault(m_index);
    if (isDefault != m_shownAsDefault)
    {
        ShowLabel(isDefault);
    }
    m_reset->Enable(!isDefault);
    if (ShowMessage())
    {
        m_onHeightChanged();
    }
}

void RuleEditorRow::ShowLabel(bool isDefault)
{
    m_shownAsDefault = isDefault;
    const wxString text = Shortened(m_model.Label(m_index)) + (isDefault ? L"" : DiffersMark);
    wxWindow* const shown = m_label != nullptr ? static_cast<wxWindow*>(m_label) : m_check;
    const wxFont plain = shown->GetParent()->GetFont();
    shown->SetFont(isDefault ? plain : plain.Bold());
    if (m_label != nullptr)
    {
        m_label->SetLabelText(text);
        WrapLabel(*m_label, m_label->FromDIP(LabelWidth));
    }
    else
    {
        m_check->SetLabel(wxControl::EscapeMnemonics(text));
    }
}

bool RuleEditorRow::ShowMessage()
{
    const wxString message = m_model.Message(m_index);
    if (message == m_shownMessage)
    {
        return false;
    }
    m_shownMessage = message;
    if (m_message != nullptr)
    {
        m_message->Destroy();
        m_message = nullptr;
    }
    if (!message.empty())
    {
        // Made when there is one: hidden windows in a list that is scrolled upset some systems.
        wxWindow* const parent = m_reset->GetParent();
        m_message = new wxStaticText(parent, wxID_ANY, wxString());
        m_message->SetForegroundColour(m_model.IsAcceptable(m_index) ? parent->GetForegroundColour() : ErrorColour());
        m_message->SetLabelText(Shortened(message.ToStdWstring()));
        WrapLabel(*m_message, parent->FromDIP(FieldWidth));
        m_cell->Add(m_message, wxSizerFlags().Border(wxTOP, parent->FromDIP(2)));
    }
    return true;
}

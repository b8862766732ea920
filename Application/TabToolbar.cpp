#include "Application/TabToolbar.h"

#include "Application/CommandBars.h"
#include "Application/CommandButtons.h"
#include "Application/TabBarSizes.h"
#include "Application/TabCtrlEx.h"

#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>
#include <vector>

namespace
{

constexpr const wchar_t* ButtonFace = L"Tahoma";

// What a tab takes with the space that themes put around its picture; it can't be asked for. Tabs
// that don't fit would hide behind arrows.
constexpr int TabSpace = 66;

constexpr int FloatingFrame = 36; // title and grip of a window of its own

// The strip keeps its size with each tab, so it has room for the one with the most buttons.
constexpr int MostButtons = static_cast<int>(TabCommands::File.size());

std::vector<int> LabelWidths(const wxWindow& window, std::span<const int> commands)
{
    std::vector<int> widths;
    for (const int id : commands)
    {
        if (const Command* const command = FindCommand(id))
        {
            int height = 0;
            window.GetTextExtent(ButtonLabelOf(*command), &widths.emplace_back(), &height, nullptr, nullptr,
                                 wxNORMAL_FONT);
        }
    }
    return widths;
}

int MeasuredButtonWidth(const wxWindow& window)
{
    return window.ToDIP(
        TabBarButtonWidth(LabelWidths(window, TabCommands::File), LabelWidths(window, TabCommands::Modules)));
}

} // namespace

CQOXRMTabToolbar::CQOXRMTabToolbar(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE),
      m_buttonWidth(MeasuredButtonWidth(*this))
{
    m_filling = true;
    m_tabs = new CQOXRMTabCtrlEx(this);
    m_tabs->InsertTabs();
    m_filling = false;

    SetBackgrounds();

    m_bar = new CommandButtons(m_tabs->GetPage(0));
    const wxFont usual = m_bar->GetFont();
    if (const wxFont font = ButtonFont(usual); !font.IsSameAs(usual))
    {
        m_bar->SetFont(font); // a font of its own gives each button a style of its own
    }
    LoadTab(0);
    const BarSize button = ButtonSizeOfLayout(m_buttonWidth);
    m_bar->SetButtonSize(button.width, button.height);

    m_tabs->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED,
                 [this](wxBookCtrlEvent& event)
                 {
                     if (!m_filling && event.GetSelection() != wxNOT_FOUND)
                     {
                         LoadTab(event.GetSelection());
                     }
                 });
    Bind(wxEVT_SIZE, &CQOXRMTabToolbar::OnSize, this);
    Bind(wxEVT_SYS_COLOUR_CHANGED,
         [this](wxSysColourChangedEvent& event)
         {
             event.Skip();
             m_surroundings.reset();
             SetBackgrounds();
             m_tabs->LoadPictures();
             m_bar->LoadPictures();
         });
    Bind(wxEVT_DPI_CHANGED,
         [this](wxDPIChangedEvent& event)
         {
             event.Skip();
             m_surroundings.reset();
         });
}

wxFont CQOXRMTabToolbar::ButtonFont(const wxFont& font)
{
    wxFont result = font;
    if (!result.SetFaceName(ButtonFace))
    {
        result = font; // the toolkit leaves none if the system has none of the name
    }
    if (result.GetWeight() != wxFONTWEIGHT_NORMAL)
    {
        result.SetWeight(wxFONTWEIGHT_NORMAL);
    }
    return result;
}

void CQOXRMTabToolbar::SetBackgrounds()
{
    // Themes may give pages the colour of documents; this is a bar.
    for (std::size_t page = 0; page < m_tabs->GetPageCount(); ++page)
    {
        m_tabs->GetPage(page)->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    }
}

int CQOXRMTabToolbar::CurrentTab() const
{
    return m_tabs->GetSelection();
}

void CQOXRMTabToolbar::ShowTab(int tab)
{
    if (tab < 0 || tab >= static_cast<int>(CommandTabs.size()))
    {
        return;
    }
    wxWindow* const focus = FindFocus();
    m_filling = true;
    m_tabs->SetSelection(static_cast<std::size_t>(tab));
    m_filling = false;
    LoadTab(tab);
    if (focus != nullptr && !IsDescendant(focus))
    {
        focus->SetFocus(); // the toolkit moves it to the page
    }
}

void CQOXRMTabToolbar::LoadTab(int tab)
{
    wxWindow* const page = m_tabs->GetPage(static_cast<std::size_t>(tab));
    if (m_bar->GetParent() != page)
    {
        if (wxSizer* const sizer = m_bar->GetContainingSizer())
        {
            sizer->Detach(m_bar);
        }
        m_bar->Reparent(page);
    }
    if (m_bar->GetContainingSizer() == nullptr)
    {
        auto* const sizer = new wxBoxSizer(wxVERTICAL); // owned by the page
        sizer->Add(m_bar, wxSizerFlags(1).Expand().Border(wxRIGHT | wxBOTTOM, Margin()));
        page->SetSizer(sizer);
    }
    m_bar->Load(CommandTabs[static_cast<std::size_t>(tab)].commands);
    const BarSize button = ButtonSizeOfShownTab(m_buttonWidth);
    m_bar->SetButtonSize(button.width, button.height);
    page->Layout();
}

void CQOXRMTabToolbar::SetVertical(bool vertical)
{
    m_bar->SetVertical(vertical);
}

bool CQOXRMTabToolbar::IsVertical() const
{
    return m_bar->IsVertical();
}

int CQOXRMTabToolbar::HeightOfRows(int rows) const
{
    const int button = std::max(FromDIP(ButtonSizeOfLayout(m_buttonWidth).height), m_bar->ButtonHeight());
    return FromDIP(TabControlRect({}).y) + Margin() + PageSurroundings().GetHeight() + rows * button;
}

int CQOXRMTabToolbar::Margin() const
{
    return FromDIP(TabControlRect({}).width); // as much as the tab control is larger than the strip
}

int CQOXRMTabToolbar::LeastWidth() const
{
    const int wanted = FromDIP(WantedStripSize(m_buttonWidth, 0).width);
    const int tabs = FromDIP(static_cast<int>(CommandTabs.size()) * TabSpace);
    return std::max({ wanted, WidthOfButton() + PageFrame(), tabs });
}

int CQOXRMTabToolbar::WidthOfButton() const
{
    return std::max(FromDIP(ButtonSizeOfLayout(m_buttonWidth).width), m_bar->ButtonWidth());
}

int CQOXRMTabToolbar::PageFrame() const
{
    return PageSurroundings().GetWidth() + Margin();
}

const wxSize& CQOXRMTabToolbar::PageSurroundings() const
{
    const bool onScreen = IsShownOnScreen();
    if (!m_surroundings || m_surroundings->onScreen != onScreen)
    {
        m_surroundings = MeasuredSurroundings{ onScreen, m_tabs->CalcSizeFromPage({ 0, 0 }) };
    }
    return m_surroundings->size;
}

wxSize CQOXRMTabToolbar::WantedSize(const wxSize& room) const
{
    if (IsVertical())
    {
        return { LeastWidth(), WantedStripSize(m_buttonWidth, room.GetHeight()).height };
    }
    const int inARow = std::clamp((room.GetWidth() - PageFrame()) / WidthOfButton(), 1, MostButtons);
    return { std::max(inARow * WidthOfButton() + PageFrame(), LeastWidth()),
             HeightOfRows((MostButtons + inARow - 1) / inARow) };
}

wxSize CQOXRMTabToolbar::FloatingSize() const
{
    return { LeastWidth(), HeightOfRows(MostButtons) + FromDIP(FloatingFrame) };
}

void CQOXRMTabToolbar::FocusButtons()
{
    if (!m_bar->FocusFirst())
    {
        m_tabs->SetFocus();
    }
}

void CQOXRMTabToolbar::OnSize(wxSizeEvent& event)
{
    event.Skip();
    if (GetClientSize().GetHeight() < HeightOfRows(1))
    {
        return; // on the way to its place; what tabs are made of can't be laid out in it
    }
    const wxSize size = ToDIP(GetClientSize());
    const BarRect place = TabControlRect({ size.GetWidth(), size.GetHeight() });
    m_tabs->SetSize(wxRect(FromDIP(wxPoint(place.x, place.y)), FromDIP(wxSize(place.width, place.height))));
    const BarSize button = ButtonSizeOfLayout(m_buttonWidth);
    m_bar->SetButtonSize(button.width, button.height);
    m_bar->GetParent()->Layout();
}

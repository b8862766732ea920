#include "Application/TabCtrlEx.h"

#include "Application/CommandBars.h"
#include "Application/CommandIcons.h"
#include "Application/TabBarSizes.h"
#include "Platform/ScreenReader.h"

#include <wx/panel.h>

CQOXRMTabCtrlEx::CQOXRMTabCtrlEx(wxWindow* parent) : wxNotebook(parent, wxID_ANY)
{
    SetPadding(FromDIP(wxSize(TabPadding, TabPadding)));
    Bind(wxEVT_MOTION, &CQOXRMTabCtrlEx::OnMouse, this);
    Bind(wxEVT_ENTER_WINDOW, &CQOXRMTabCtrlEx::OnMouse, this);
}

void CQOXRMTabCtrlEx::LoadPictures()
{
    Images images;
    for (const CommandTab& tab : CommandTabs)
    {
        images.push_back(NamedIcon(tab.icon, GetForegroundColour()));
    }
    SetImages(images);
}

void CQOXRMTabCtrlEx::InsertTabs()
{
    LoadPictures();
    for (std::size_t index = 0; index < CommandTabs.size(); ++index)
    {
        auto* const page = new wxPanel(this); // owned by this window
        page->SetLabel(LoadText(CommandTabs[index].tip));
        AddPage(page, wxString(), index == 0, static_cast<int>(index));
        // The tab has a picture and no text.
        Platform::NameTabForScreenReaders(GetHandle(), static_cast<int>(index), LoadText(CommandTabs[index].tip));
    }
}

wxString CQOXRMTabCtrlEx::TipAt(const wxPoint& place) const
{
    const int tab = HitTest(place);
    return tab == wxNOT_FOUND ? wxString() : wxString(LoadText(CommandTabs[static_cast<std::size_t>(tab)].tip));
}

void CQOXRMTabCtrlEx::OnMouse(wxMouseEvent& event)
{
    event.Skip();
    const wxString tip = TipAt(event.GetPosition());
    if (tip != GetToolTipText())
    {
        SetToolTip(tip);
    }
}

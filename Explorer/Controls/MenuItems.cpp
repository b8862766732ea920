#include "Explorer/Controls/MenuItems.h"

#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/menu.h>
#include <wx/window.h>

#include <utility>

CQOXRMMenuItems::CQOXRMMenuItems() = default;

CQOXRMMenuItems::CQOXRMMenuItems(const std::wstring& text, const wxBitmapBundle& normalBitmap,
                                 const wxBitmapBundle& disabledBitmap, MenuColour background)
    : m_caption(SplitMenuCaption(text)), m_normalBitmap(normalBitmap), m_disabledBitmap(disabledBitmap),
      m_background(background)
{
}

CQOXRMMenuItems::~CQOXRMMenuItems() = default;

CQOXRMMenuItems& CQOXRMMenuItems::AddItem(std::uint32_t flags, int id, const std::wstring& caption,
                                          const wxBitmapBundle& normalBitmap, int firstCommand, int secondCommand,
                                          const wxBitmapBundle& disabledBitmap)
{
    auto item = std::make_unique<CQOXRMMenuItems>(caption, normalBitmap, disabledBitmap, m_background);
    item->m_id = id;
    item->m_flags = flags | MenuFlag::OwnerDrawn;
    item->m_firstCommand = firstCommand;
    item->m_secondCommand = secondCommand;
    if (m_menuBar != nullptr || m_menu != nullptr)
    {
        Show(*item, caption);
    }
    m_children.push_back(std::move(item));
    return *m_children.back();
}

void CQOXRMMenuItems::Show(CQOXRMMenuItems& item, const std::wstring& caption)
{
    const bool isPopup = (item.m_flags & MenuFlag::Popup) != 0;
    if (isPopup)
    {
        item.m_menu = new wxMenu; // owned by the bar or menu that it is appended to
        item.m_id = wxID_ANY;
    }
    if (m_menuBar != nullptr)
    {
        m_menuBar->Append(isPopup ? item.m_menu : new wxMenu, caption); // owned by the bar
        return;
    }
    if ((item.m_flags & MenuFlag::Separator) != 0)
    {
        item.m_shownItem = m_menu->AppendSeparator();
        return;
    }
    const bool canBeChecked = (item.m_flags & MenuFlag::Checkable) != 0;
    auto* const shown = new wxMenuItem(m_menu, item.m_id, caption, wxString(),
                                       canBeChecked ? wxITEM_CHECK : wxITEM_NORMAL, item.m_menu); // owned by the menu
    if (item.m_normalBitmap.IsOk() && !canBeChecked)
    {
        shown->SetBitmap(item.m_normalBitmap); // beside a check mark there is no place for one
    }
    m_menu->Append(shown);
    shown->Enable((item.m_flags & (MenuFlag::Grayed | MenuFlag::Disabled)) == 0);
    if (canBeChecked)
    {
        shown->Check((item.m_flags & MenuFlag::Checked) != 0);
    }
    item.m_shownItem = shown;
    item.m_id = shown->GetId();
}

std::uint32_t CQOXRMMenuItems::FindMenuChar(wchar_t character, std::uint32_t flags, const CQOXRMMenuItems* menu)
{
    if (menu == nullptr)
    {
        return 0;
    }
    std::vector<const MenuCaption*> captions;
    for (const std::unique_ptr<CQOXRMMenuItems>& child : menu->m_children)
    {
        captions.push_back(&child->m_caption);
    }
    return ::FindMenuChar(character, flags, captions);
}

void CQOXRMMenuItems::MeasureItem(wxSize& size)
{
    const wxString line = m_caption.text + m_caption.keyText;
    const wxWindow* const mainWindow = wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr;
    wxBitmap bitmap(1, 1);
    const int textWidth = mainWindow != nullptr ? mainWindow->GetTextExtent(line).GetWidth()
                                                : wxMemoryDC(bitmap).GetTextExtent(line).GetWidth();
    size.SetWidth(MenuItemWidth(textWidth, !m_caption.keyText.empty()));
}

bool CQOXRMMenuItems::IsGrayed() const
{
    return m_shownItem != nullptr ? !m_shownItem->IsEnabled()
                                  : (m_flags & (MenuFlag::Grayed | MenuFlag::Disabled)) != 0;
}

bool CQOXRMMenuItems::IsChecked() const
{
    return m_shownItem != nullptr ? m_shownItem->IsCheckable() && m_shownItem->IsChecked()
                                  : (m_flags & MenuFlag::Checked) != 0;
}

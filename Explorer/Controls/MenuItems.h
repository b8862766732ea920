#pragma once

#include "Explorer/Controls/MenuStructure.h"

#include <wx/bmpbndl.h>
#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/gdicmn.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class wxMenu;
class wxMenuBar;
class wxMenuItem;

/// A colour as 0x00BBGGRR.
using MenuColour = std::uint32_t;

/// Where and why an item is drawn.
struct MenuDrawData
{
    wxDC& dc;
    wxRect rect; ///< The whole item.
    MenuDrawCause cause;
    bool isSelected = false;
};

/// A menu and an item at once: a menu bar, each menu in it, and each item of a menu.
///
/// The items that a user sees are the toolkit's, with icon and key; what is here stands behind
/// them: texts, keys, commands, and how an item is measured and drawn where menus are drawn by
/// the program. The bar or menu that the items go to owns the toolkit's ones and must live as
/// long as items are drawn.
class CQOXRMMenuItems
{
public:
    /// No text, key, bitmaps or check flag.
    CQOXRMMenuItems();
    CQOXRMMenuItems(const std::wstring& text, const wxBitmapBundle& normalBitmap, const wxBitmapBundle& disabledBitmap,
                    MenuColour background);
    virtual ~CQOXRMMenuItems();
    CQOXRMMenuItems(const CQOXRMMenuItems&) = delete;
    CQOXRMMenuItems& operator=(const CQOXRMMenuItems&) = delete;

    /// Where items that are added from now on appear too. Not owned.
    void ShowIn(wxMenuBar& menuBar) { m_menuBar = &menuBar; }
    void ShowIn(wxMenu& menu) { m_menu = &menu; }

    /// Adds an item at the end: with the flag `Popup` one with a menu of its own, which then
    /// stands for the id. The caption is split at its tab. The item belongs to this menu and
    /// gets its background colour.
    CQOXRMMenuItems& AddItem(std::uint32_t flags, int id, const std::wstring& caption,
                             const wxBitmapBundle& normalBitmap, int firstCommand, int secondCommand,
                             const wxBitmapBundle& disabledBitmap);

    /// What a character does that is typed while `menu` is open, as `::FindMenuChar` gives it;
    /// 0 for no menu.
    static std::uint32_t FindMenuChar(wchar_t character, std::uint32_t flags, const CQOXRMMenuItems* menu);

    const std::wstring& Text() const { return m_caption.text; }
    const std::wstring& KeyText() const { return m_caption.keyText; }
    std::int32_t KeyCode() const { return m_caption.keyCode; }
    int Id() const { return m_id; }
    std::uint32_t Flags() const { return m_flags; }
    int FirstCommand() const { return m_firstCommand; }
    int SecondCommand() const { return m_secondCommand; }
    const wxBitmapBundle& NormalBitmap() const { return m_normalBitmap; }
    const wxBitmapBundle& DisabledBitmap() const { return m_disabledBitmap; }
    MenuColour Background() const { return m_background; }

    /// An item whose text looks pressed.
    void SetCheckFlag(bool set) { m_checkFlag = set; }
    bool CheckFlag() const { return m_checkFlag; }

    const std::vector<std::unique_ptr<CQOXRMMenuItems>>& Children() const { return m_children; }

    /// The toolkit's menu of a popup; null for an item without one.
    wxMenu* Menu() const { return m_menu; }
    /// The toolkit's item; null for a menu in a bar, and for what is shown nowhere.
    wxMenuItem* ShownItem() const { return m_shownItem; }

    // Kept as the last two virtual functions.

    virtual void DrawItem(const MenuDrawData& data);

    /// Sets the width that the item needs, in the font of the program's main window. The height
    /// stays as it was given.
    virtual void MeasureItem(wxSize& size);

private:
    void Show(CQOXRMMenuItems& item, const std::wstring& caption);
    bool IsGrayed() const;
    bool IsChecked() const;

    void DrawNormal(const MenuDrawData& data) const;
    void DrawSelected(const MenuDrawData& data) const;
    void DrawDeselected(const MenuDrawData& data) const;
    void DrawItemText(wxDC& dc, const wxRect& textRect, const wxColour& colour) const;
    void DrawUnselected(const MenuDrawData& data, int keyFromRight) const;
    void DrawBitmap(wxDC& dc, const wxRect& iconRect, const wxBitmapBundle& bitmap) const;

    MenuCaption m_caption;
    wxBitmapBundle m_normalBitmap;
    wxBitmapBundle m_disabledBitmap;
    int m_id = 0;
    std::uint32_t m_flags = 0;
    int m_firstCommand = 0;
    int m_secondCommand = 0;
    bool m_checkFlag = false;
    MenuColour m_background = 0; ///< 0 until it is taken from the device.
    std::vector<std::unique_ptr<CQOXRMMenuItems>> m_children;

    wxMenuBar* m_menuBar = nullptr; // these three are owned by the toolkit
    wxMenu* m_menu = nullptr;
    wxMenuItem* m_shownItem = nullptr;
};

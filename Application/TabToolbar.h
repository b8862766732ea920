#pragma once

#include <wx/panel.h>

#include <optional>

class CommandButtons;
class CQOXRMTabCtrlEx;

/// The command strip of the main window: four tabs, and one tool bar below them whose buttons
/// change with the tab. The commands are those of the frame; the strip shows and routes them.
class CQOXRMTabToolbar : public wxPanel
{
public:
    /// The first tab is shown.
    explicit CQOXRMTabToolbar(wxWindow* parent);

    /// Shows a tab's buttons, in the colours of the theme, and makes it the current one.
    void ShowTab(int tab);
    int CurrentTab() const;

    /// Buttons below one another, for a strip at the side of the window, or beside one another.
    void SetVertical(bool vertical);
    bool IsVertical() const;

    /// The size that suits the strip, with room for all tabs and for the buttons of each, where
    /// there is the width of the strip's place and the height of the inside of its frame.
    wxSize WantedSize(const wxSize& room) const;

    /// The height of a strip with that many rows of buttons.
    int HeightOfRows(int rows) const;

    /// The size that suits a strip in a window of its own.
    wxSize FloatingSize() const;

    /// Moves the keyboard to the first button that is enabled, or to the tabs.
    void FocusButtons();

    /// The font of the buttons, out of the one that they would have.
    static wxFont ButtonFont(const wxFont& font);

    int ButtonWidth() const { return m_buttonWidth; }
    CQOXRMTabCtrlEx& Tabs() { return *m_tabs; }
    CommandButtons& Bar() { return *m_bar; }

private:
    /// What the toolkit puts around a page. It takes a while to ask, and doesn't change but with
    /// the theme, the scale and whether the window is there.
    struct MeasuredSurroundings
    {
        bool onScreen = false;
        wxSize size;
    };

    void LoadTab(int tab);
    void SetBackgrounds();
    int WidthOfButton() const;
    int LeastWidth() const;
    int Margin() const;
    int PageFrame() const;
    const wxSize& PageSurroundings() const;
    void OnSize(wxSizeEvent& event);

    int m_buttonWidth;                 // at a scale of 100 %
    CQOXRMTabCtrlEx* m_tabs = nullptr; // these two are owned by the window system
    CommandButtons* m_bar = nullptr;
    mutable std::optional<MeasuredSurroundings> m_surroundings;
    bool m_filling = false; // tabs come in, which is no choice of the user's
};

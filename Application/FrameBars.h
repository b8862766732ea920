#pragma once

#include "Application/BarManager.h"

#include <array>
#include <functional>

class CQOXRMTabToolbar;
struct BarPlace;
class wxFrame;
class wxToolBar;

/// The two bars of the main window, which dock at its sides or float beside it: the command strip
/// and, to the left of it, the quick tool bar. Where they are, which tab is shown and whether the
/// quick tool bar is, is remembered for the user.
class FrameBars
{
public:
    explicit FrameBars(wxFrame& frame);
    ~FrameBars();
    FrameBars(const FrameBars&) = delete;
    FrameBars& operator=(const FrameBars&) = delete;

    bool IsSecondToolBarShown() const;
    void ShowSecondToolBar(bool show);

    /// Shows a tab of the strip and moves the keyboard to its buttons.
    void GoToTab(int tab);

    /// Moves the keyboard on: from what `toRules` moves it to, to the strip, to the quick tool bar
    /// if it is shown, and back.
    void GoToNextPane(const std::function<void()>& toRules);

    CQOXRMTabToolbar& Strip() { return *m_strip; }
    wxToolBar& SecondToolBar() { return *m_secondBar; }
    wxAuiManager& Manager() { return m_manager; }

    /// Places of the bars as one text, and back. A text that no bars made leaves them as they are;
    /// whatever it says, the strip can be seen and the bars leave room for the documents.
    wxString Layout() const;
    void SetLayout(const wxString& layout);

private:
    void MakeSecondToolBar();
    void AddPanes();
    void KeepOwnWindows();
    void Put(wxWindow& bar, const BarPlace& place);
    // True if the manager has laid its panes out again.
    bool FitToDocks();
    // True if the manager has to lay its panes out again.
    bool FitStrip();
    bool FitSecondBar();
    void OnBarSize(wxSizeEvent& event);
    void OnSecondBarEnter(wxCommandEvent& event);
    void OnSecondBarColours(wxSysColourChangedEvent& event);
    bool HoldsKeyboard(const wxWindow& pane) const;
    std::array<wxWindow*, 2> BothBars() const;
    wxAuiPaneInfo& PaneOf(wxWindow& bar) const { return m_manager.GetPane(&bar); }

    wxFrame& m_frame;
    CQOXRMTabToolbar* m_strip = nullptr; // these two are owned by the window system
    wxToolBar* m_secondBar = nullptr;
    mutable BarManager m_manager; // a constant one answers nothing
    bool m_fitRequested = false;
};

#pragma once

#include <wx/panel.h>
#include <wx/weakref.h>

#include <span>
#include <vector>

class wxAnyButton;

/// A bar of flat buttons with labels at the side of their pictures, beside or below one another.
/// The toolkit's own bar can't be told how wide its buttons are. Every button is reached by keys
/// and has its label for programs that read the screen.
///
/// A button sends the number of its command as a menu item does, and asks the same way whether the
/// command is enabled and checked. A click leaves the keyboard where it was.
class CommandButtons : public wxPanel
{
public:
    explicit CommandButtons(wxWindow* parent);

    /// Puts the buttons of commands in place of those that were there. A command without a row in
    /// the command table gets none.
    void Load(std::span<const int> commands);

    /// Makes the pictures again in the colours of the theme. The buttons stay, also while one of
    /// them carries out its command.
    void LoadPictures();

    /// What each button takes at least, in units of a scale of 100 %; a label that needs more
    /// gets it.
    void SetButtonSize(int width, int height);

    /// Buttons below one another, or beside.
    void SetVertical(bool vertical);
    bool IsVertical() const { return m_vertical; }

    /// The least that a button takes with what it shows now, with the space around it; 0 without buttons.
    int ButtonWidth() const;
    int ButtonHeight() const;

    const std::vector<wxAnyButton*>& Buttons() const { return m_buttons; }

    /// Moves the keyboard to the first button that is enabled. False if there is none.
    bool FocusFirst();

private:
    wxAnyButton* MakeButton(int command);
    void Arrange();
    void OnButton(wxCommandEvent& event);

    std::vector<wxAnyButton*> m_buttons; // owned by the window system
    wxWeakRef<wxWindow> m_focusBefore;   // what had the keyboard when the mouse was pressed
    wxSize m_buttonSize;
    bool m_vertical = false;
};

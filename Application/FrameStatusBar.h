#pragma once

#include <wx/statusbr.h>

/// What the status bar tells of the open files.
struct OpenFiles
{
    int count = 0;
    bool activeReadOnly = false; ///< The file that the user works on can't be saved under its name.
};

/// The status bar: messages, how many files are open, and four indicators, for the lock keys and
/// for a read-only file. An indicator is empty while what it tells of is not so.
class FrameStatusBar : public wxStatusBar
{
public:
    explicit FrameStatusBar(wxWindow* parent);

    enum Pane
    {
        MessagePane,
        OpenFilesPane,
        CapsLockPane,
        NumLockPane,
        ScrollLockPane,
        ReadOnlyPane,
        PaneCount,
    };

    /// Brings all panes but the first in line with the keyboard and the open files.
    void UpdatePanes(const OpenFiles& files);

private:
    void SetPane(Pane pane, const wxString& text);
    void UpdateCount(int count);
    void MeasurePane(Pane pane, const wxString& text);

    int m_widths[PaneCount] = {};
};

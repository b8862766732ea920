#pragma once

#include "Explorer/Controls/YesNoAllAnswer.h"
#include "Help/HelpTopics.h"

#include <wx/dialog.h>

/// Asks a question that comes up for many things: Yes, Yes to All, No, No to All. Each button
/// ends the dialog with OK. Enter is Yes; Escape and closing the window are No.
class CYesNoAllDlg : public wxDialog
{
public:
    /// `topic` is what F1 shows.
    CYesNoAllDlg(const wxString& question, wxWindow* parent, HelpTopic topic = HelpTopic::Overview);

    /// Yes until a button was pressed.
    YesNoAllAnswer Answer() const { return m_answer; }

private:
    YesNoAllAnswer m_answer = YesNoAllAnswer::Yes;
};

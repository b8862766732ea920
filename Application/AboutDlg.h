#pragma once

#include <wx/dialog.h>

/// Says what the program is and which version of it runs.
class CAboutDlg : public wxDialog
{
public:
    explicit CAboutDlg(wxWindow* parent);
};

#pragma once

#include <wx/docmdi.h>

/// Window of one document within the main window.
class CQOXRMChildFrame : public wxDocMDIChildFrame
{
public:
    CQOXRMChildFrame(wxDocument* document, wxView* view, wxMDIParentFrame* parent);
};

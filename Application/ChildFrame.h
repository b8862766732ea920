#pragma once

#include <wx/docmdi.h>

class CurrentRuleFile;

/// Window of one document within the main window.
class CQOXRMChildFrame : public wxDocMDIChildFrame
{
public:
    /// `currentFile`, which is told of each activation, is not owned.
    CQOXRMChildFrame(wxDocument* document, wxView* view, wxMDIParentFrame* parent, CurrentRuleFile& currentFile);
};

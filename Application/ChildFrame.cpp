#include "Application/ChildFrame.h"

CQOXRMChildFrame::CQOXRMChildFrame(wxDocument* document, wxView* view, wxMDIParentFrame* parent)
    : wxDocMDIChildFrame(document, view, parent, wxID_ANY, document->GetTitle())
{
}

#include "Application/ChildFrame.h"

#include "Application/CurrentRuleFile.h"

CQOXRMChildFrame::CQOXRMChildFrame(wxDocument* document, wxView* view, wxMDIParentFrame* parent,
                                   CurrentRuleFile& currentFile)
    : wxDocMDIChildFrame(document, view, parent, wxID_ANY, document->GetTitle())
{
    Bind(wxEVT_ACTIVATE,
         [this, &currentFile](wxActivateEvent& event)
         {
             event.Skip();
             if (event.GetActive())
             {
                 currentFile.OnActivated(GetTitle().ToStdWstring());
             }
         });
    // The toolkit doesn't tell the first window of several that it is the active one.
    CallAfter(
        [this, &currentFile]
        {
            if (GetMDIParent()->GetActiveChild() == this)
            {
                currentFile.OnActivated(GetTitle().ToStdWstring());
            }
        });
}

#include "Modules/HelpKey.h"

#include "Modules/ApplicationGlobals.h"

#include <wx/event.h>
#include <wx/window.h>

namespace
{

void ShowHelp(HelpTopic topic)
{
    if (g_pApp != nullptr)
    {
        g_pApp->ShowHelp(topic);
    }
}

} // namespace

void ShowHelpOnF1(wxWindow& dialog, HelpTopic topic)
{
    // Ahead of the controls, some of which have a use of their own for the key.
    dialog.Bind(wxEVT_CHAR_HOOK,
                [topic](wxKeyEvent& event)
                {
                    if (event.GetKeyCode() == WXK_F1 && !event.HasAnyModifiers())
                    {
                        ShowHelp(topic);
                        return;
                    }
                    event.Skip();
                });
    dialog.Bind(
        wxEVT_BUTTON, [topic](wxCommandEvent& /*event*/) { ShowHelp(topic); }, wxID_HELP);
}

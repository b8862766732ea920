#include "Utilities/DialogButtons.h"

#include "Utilities/Texts.h"

#include <wx/sizer.h>
#include <wx/window.h>

#include <array>
#include <utility>

void LabelStandardButtons(wxWindow& window)
{
    constexpr std::array Buttons = {
        std::pair{ wxID_OK, TextId::ButtonOk },     std::pair{ wxID_CANCEL, TextId::ButtonCancel },
        std::pair{ wxID_YES, TextId::ButtonYes },   std::pair{ wxID_NO, TextId::ButtonNo },
        std::pair{ wxID_HELP, TextId::ButtonHelp }, std::pair{ wxID_CLOSE, TextId::ButtonClose },
    };
    for (const auto& [id, text] : Buttons)
    {
        if (wxWindow* const button = window.FindWindow(id))
        {
            button->SetLabel(LoadText(text));
        }
    }
}

void DropSpaceAroundButtons(wxSizer& buttons)
{
    for (wxSizerItem* const item : buttons.GetChildren())
    {
        item->SetFlag(item->GetFlag() & ~wxLEFT);
        if (item->IsWindow())
        {
            break;
        }
        item->AssignSpacer(0, item->GetSpacer().GetHeight());
    }
    for (auto item = buttons.GetChildren().rbegin(); item != buttons.GetChildren().rend(); ++item)
    {
        (*item)->SetFlag((*item)->GetFlag() & ~wxRIGHT);
        if ((*item)->IsWindow())
        {
            break;
        }
        (*item)->AssignSpacer(0, (*item)->GetSpacer().GetHeight());
    }
}

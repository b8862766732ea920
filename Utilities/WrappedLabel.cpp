#include "Utilities/WrappedLabel.h"

#include "Utilities/LineBreaks.h"

#include <wx/stattext.h>

void WrapLabel(wxStaticText& label, int width)
{
    const std::wstring lines =
        BrokenIntoLines(label.GetLabelText().ToStdWstring(), width,
                        [&label](const std::wstring& line) { return label.GetTextExtent(line).GetWidth(); });
    label.SetLabelText(lines);
}

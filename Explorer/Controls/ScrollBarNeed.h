#pragma once

#include <functional>
#include <string>
#include <vector>

/// The scroll bars that a text field shows.
struct ScrollBarNeed
{
    bool horizontal = false;
    bool vertical = false;

    bool operator==(const ScrollBarNeed&) const = default;
};

/// The lines of a text. They end at line feeds; a carriage return at a line's end is not part
/// of it. An empty text is one empty line.
std::vector<std::wstring> LinesOf(const std::wstring& text);

/// Which bars a text needs in a client area of this size: one as soon as the text reaches the
/// edge, not only beyond it. All in pixels; `widthOf` measures a line in the field's font.
ScrollBarNeed ScrollBarsFor(const std::wstring& text, int lineHeight, int clientWidth, int clientHeight,
                            const std::function<int(const std::wstring&)>& widthOf);

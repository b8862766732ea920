#include "Explorer/Controls/ScrollBarNeed.h"

#include <algorithm>
#include <cstddef>

std::vector<std::wstring> LinesOf(const std::wstring& text)
{
    std::vector<std::wstring> lines;
    std::size_t start = 0;
    while (true)
    {
        const std::size_t end = text.find(L'\n', start);
        std::wstring line = text.substr(start, end - start);
        if (line.ends_with(L'\r'))
        {
            line.pop_back();
        }
        lines.push_back(std::move(line));
        if (end == std::wstring::npos)
        {
            return lines;
        }
        start = end + 1;
    }
}

ScrollBarNeed ScrollBarsFor(const std::wstring& text, int lineHeight, int clientWidth, int clientHeight,
                            const std::function<int(const std::wstring&)>& widthOf)
{
    const std::vector<std::wstring> lines = LinesOf(text);
    ScrollBarNeed need;
    need.horizontal =
        std::any_of(lines.begin(), lines.end(), [&](const std::wstring& line) { return widthOf(line) >= clientWidth; });
    // A text of very many lines is higher than an int has room for.
    need.vertical = static_cast<long long>(lineHeight) * static_cast<long long>(lines.size()) >= clientHeight;
    return need;
}

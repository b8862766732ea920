#include "Explorer/ColumnShares.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <sstream>

namespace
{

constexpr std::array<double, RuleColumnCount> OwnShares = { 0.395, 0.2, 0.2, 0.2 };

constexpr int Whole = 100'000;
// A wider column than this many lists no user has made.
constexpr int MostLists = 50;
// A column of the user's always has a border that can be taken hold of.
constexpr int LeastWidth = 10;

} // namespace

ColumnShares::Widths ColumnShares::In(int listWidth) const
{
    Widths widths{};
    for (std::size_t column = 0; column < widths.size(); ++column)
    {
        widths[column] =
            m_ofUser
                ? std::max(LeastWidth,
                           static_cast<int>(std::lround(static_cast<double>((*m_ofUser)[column]) * listWidth / Whole)))
                : static_cast<int>(listWidth * OwnShares[column]);
    }
    return widths;
}

void ColumnShares::Take(const Widths& widths, int listWidth)
{
    Shares shares{};
    for (std::size_t column = 0; column < shares.size(); ++column)
    {
        const double share = static_cast<double>(std::max(widths[column], 0)) / std::max(listWidth, 1);
        shares[column] = static_cast<int>(std::lround(std::min<double>(share, MostLists) * Whole));
    }
    m_ofUser = shares;
}

std::wstring ColumnShares::ToText() const
{
    std::wstring text;
    for (std::size_t column = 0; m_ofUser && column < m_ofUser->size(); ++column)
    {
        text += (column > 0 ? L" " : L"") + std::to_wstring((*m_ofUser)[column]);
    }
    return text;
}

void ColumnShares::FromText(const std::wstring& text)
{
    Reset();
    std::wistringstream stream(text);
    stream.imbue(std::locale::classic());
    Shares shares{};
    for (int& share : shares)
    {
        if (!(stream >> share) || share < 0 || share > MostLists * Whole)
        {
            return;
        }
    }
    if ((stream >> std::ws).eof())
    {
        m_ofUser = shares;
    }
}

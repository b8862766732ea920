#include "Explorer/Controls/TipEntries.h"

#include <algorithm>
#include <utility>

void TipEntries::Append(std::wstring text, std::optional<std::wstring> tip)
{
    m_entries.push_back({ std::move(text), std::move(tip) });
}

void TipEntries::Delete(int index)
{
    if (!Has(index))
    {
        return;
    }
    m_entries.erase(m_entries.begin() + index);
    if (index == m_current)
    {
        m_current = None;
    }
    else if (index < m_current)
    {
        --m_current;
    }
}

void TipEntries::Clear()
{
    m_entries.clear();
    m_current = None;
}

int TipEntries::Count() const
{
    return static_cast<int>(m_entries.size());
}

std::wstring TipEntries::Text(int index) const
{
    return Has(index) ? m_entries[static_cast<std::size_t>(index)].text : std::wstring();
}

std::wstring TipEntries::Tip(int index) const
{
    if (!Has(index))
    {
        return {};
    }
    const Entry& entry = m_entries[static_cast<std::size_t>(index)];
    return entry.tip.value_or(entry.text).substr(0, LongestTip);
}

int TipEntries::Find(const std::wstring& text) const
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [&text](const Entry& entry) { return entry.text == text; });
    return found == m_entries.end() ? None : static_cast<int>(found - m_entries.begin());
}

void TipEntries::SetCurrent(int index)
{
    m_current = Has(index) ? index : None;
}

int TipToolOfRow(int row)
{
    return row + 1;
}

DropDownSize SizeOfDropDown(int rows, int rowHeight, int room, int width, int scrollBarWidth)
{
    constexpr int Borders = 4;
    if (rows * rowHeight <= room)
    {
        return { rows, rows * rowHeight + Borders, width };
    }
    const int seen = std::max(room / rowHeight, 1);
    return { seen, seen * rowHeight + Borders, std::max(width - scrollBarWidth, 0) };
}

#include "Explorer/TypedSearch.h"

#include "Explorer/FoldedText.h"

namespace
{

bool IsOneLetterRepeated(const std::wstring& text)
{
    return text.size() > 1 && text.find_first_not_of(text[0]) == std::wstring::npos;
}

/// The first row below `start` whose name has the text, at the beginning or, if `anywhere` is
/// true and no name begins with it, anywhere; -1 for none. `start` itself comes last.
int FindBelow(int start, const std::wstring& folded, bool anywhere, const TypedSearch::Rows& rows)
{
    if (folded.empty())
    {
        return -1; // nothing but accents
    }
    int within = -1;
    for (int step = 1; step <= rows.count; ++step)
    {
        const int row = (start + step) % rows.count;
        const std::wstring name = FoldedText(rows.name(row));
        if (name.starts_with(folded))
        {
            return row;
        }
        if (anywhere && within < 0 && name.find(folded) != std::wstring::npos)
        {
            within = row;
        }
    }
    return within;
}

} // namespace

int TypedSearch::Type(wchar_t letter, const Rows& rows, Time now)
{
    if (!IsRunning(now))
    {
        m_text.clear();
        m_start = rows.focused;
    }
    m_text += letter;
    const std::wstring folded = FoldedText(m_text);
    if (IsOneLetterRepeated(folded) && FindBelow(m_start, folded, false, rows) < 0)
    {
        const int next = FindBelow(rows.focused, folded.substr(0, 1), false, rows);
        if (next >= 0)
        {
            return Found(next, now);
        }
    }
    return Found(Find(m_text, rows), now);
}

bool TypedSearch::WouldFind(wchar_t letter, const Rows& rows) const
{
    return Find(m_text + letter, rows) >= 0;
}

int TypedSearch::Shorten(const Rows& rows, Time now)
{
    if (!m_text.empty())
    {
        m_text.pop_back();
    }
    if (m_text.empty())
    {
        End();
        return -1;
    }
    int row = Find(m_text, rows);
    if (row < 0 && IsOneLetterRepeated(FoldedText(m_text)))
    {
        row = Find(m_text.substr(0, 1), rows);
    }
    return Found(row, now);
}

void TypedSearch::End()
{
    m_text.clear();
    m_found = false;
}

int TypedSearch::Find(const std::wstring& text, const Rows& rows) const
{
    return FindBelow(m_start, FoldedText(text), true, rows);
}

int TypedSearch::Found(int row, Time now)
{
    m_found = row >= 0;
    m_lastTyped = now;
    return row;
}

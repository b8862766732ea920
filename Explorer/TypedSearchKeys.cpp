#include "Explorer/TypedSearchKeys.h"

#include "Explorer/ListCtrlEx.h"

#include <wx/event.h>

namespace
{

bool IsOfInputMethod(int key)
{
    return key == WXK_SPACE || key == WXK_BACK || key == WXK_ESCAPE || key == WXK_RETURN;
}

bool IsLetter(wxChar character)
{
    return character > WXK_SPACE && character != WXK_DELETE;
}

TypedSearch::Time Now()
{
    return std::chrono::steady_clock::now();
}

} // namespace

TypedSearchKeys::TypedSearchKeys(CQOXRMListCtrlEx& list) : m_list(list)
{
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { End(); });
}

bool TypedSearchKeys::TakeKey(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    if (event.HasModifiers())
    {
        return false;
    }
    if (IsLetter(event.GetUnicodeKey()))
    {
        m_awaitingText = true;
        event.Skip();
        return true;
    }
    if (m_awaitingText && IsOfInputMethod(key))
    {
        // If there is no composition after all, they come back as what they are.
        m_awaitingText = key == WXK_SPACE || key == WXK_BACK;
        event.Skip();
        return true;
    }
    return TakeCommand(key);
}

bool TypedSearchKeys::TakeLetter(const wxKeyEvent& event)
{
    m_awaitingText = false;
    if (event.HasModifiers())
    {
        return false;
    }
    if (IsLetter(event.GetUnicodeKey()))
    {
        Show(m_search.Type(event.GetUnicodeKey(), Rows(), Now()));
        return true;
    }
    return TakeCommand(event.GetKeyCode());
}

bool TypedSearchKeys::TakeCommand(int key)
{
    if (!m_search.IsRunning(Now()))
    {
        return false;
    }
    switch (key)
    {
    case WXK_BACK:
        Show(m_search.Shorten(Rows(), Now()));
        return true;
    case WXK_ESCAPE:
        End();
        return true;
    case WXK_SPACE:
        // Only a blank of a name is part of the search: any other sets boxes, as ever.
        if (!m_search.WouldFind(L' ', Rows()))
        {
            return false;
        }
        Show(m_search.Type(L' ', Rows(), Now()));
        return true;
    default:
        return false;
    }
}

void TypedSearchKeys::Show(int row)
{
    if (row >= 0)
    {
        m_list.GoToRow(row);
    }
    if (m_search.Text().empty())
    {
        m_timer.Stop();
    }
    else
    {
        m_timer.StartOnce(static_cast<int>(m_search.Limit().count()));
    }
    if (m_handler)
    {
        m_handler(m_search.Text(), m_search.HasFound());
    }
}

void TypedSearchKeys::End()
{
    if (!m_search.Text().empty())
    {
        m_search.End();
        Show(-1);
    }
}

TypedSearch::Rows TypedSearchKeys::Rows() const
{
    return { m_list.RowCount(), m_list.FocusedRow(),
             [this](int row) { return m_list.Text(row, static_cast<int>(RuleColumn::Name)); } };
}

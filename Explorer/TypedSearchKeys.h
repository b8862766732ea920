#pragma once

#include "Explorer/TypedSearch.h"

#include <chrono>
#include <functional>
#include <string>
#include <utility>

#include <wx/timer.h>

class CQOXRMListCtrlEx;
class wxKeyEvent;

/// The keys of the search in the rule list, by which rules are found while the user types.
///
/// An input method gets its keys ahead: while letters of it have not become text yet, Space,
/// Backspace, Escape and Enter are for it.
class TypedSearchKeys
{
public:
    /// Called with what was typed and whether a row has it; with an empty text at the end.
    using Handler = std::function<void(const std::wstring& text, bool found)>;

    /// The list isn't owned and must live as long.
    explicit TypedSearchKeys(CQOXRMListCtrlEx& list);

    void SetHandler(Handler handler) { m_handler = std::move(handler); }

    /// How long a search waits for the next letter.
    void SetLimit(std::chrono::milliseconds limit) { m_search.SetLimit(limit); }

    /// Takes a key that was pressed, ahead of the list. False if it is for the list.
    bool TakeKey(wxKeyEvent& event);

    /// Takes a letter, as the keyboard or an input method gives it. False if it is none.
    bool TakeLetter(const wxKeyEvent& event);

    /// Ends the search, if one is running.
    void End();

private:
    bool TakeCommand(int key);
    void Show(int row);
    TypedSearch::Rows Rows() const;

    CQOXRMListCtrlEx& m_list;
    Handler m_handler;
    TypedSearch m_search;
    wxTimer m_timer;
    bool m_awaitingText = false; // letters were pressed that have not become text
};

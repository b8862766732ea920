#pragma once

#include <chrono>
#include <functional>
#include <string>

/// Finds rows by their names while the user types: the next row below whose name starts with
/// what was typed or, if none does, that has it anywhere. At the end it goes on at the top. What
/// is typed soon enough after one another belongs together. Case and accents don't matter.
class TypedSearch
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// How long a search waits for the next letter, unless it is told otherwise.
    static constexpr std::chrono::milliseconds TimeLimit{ 2000 };

    void SetLimit(std::chrono::milliseconds limit) { m_limit = limit; }
    std::chrono::milliseconds Limit() const { return m_limit; }

    /// The rows in the order in which they are shown.
    struct Rows
    {
        int count = 0;
        int focused = -1; ///< -1 for none
        std::function<std::wstring(int)> name;
    };

    bool IsRunning(Time now) const { return !m_text.empty() && now - m_lastTyped < m_limit; }

    /// What has been typed; empty before the first letter and after the end.
    const std::wstring& Text() const { return m_text; }

    /// True if a row has what was typed.
    bool HasFound() const { return m_found; }

    /// The user has typed a letter: returns the row to go to, or -1 if there is none. A letter
    /// typed again and again goes from one row that starts with it to the next, unless there
    /// are names that start with it so many times.
    int Type(wchar_t letter, const Rows& rows, Time now);

    /// Whether a row has what was typed and this letter behind it.
    bool WouldFind(wchar_t letter, const Rows& rows) const;

    /// Takes the last letter back: returns the row to go to, as if it hadn't been typed, or -1
    /// if there is none or nothing is left.
    int Shorten(const Rows& rows, Time now);

    void End();

private:
    int Find(const std::wstring& text, const Rows& rows) const;
    int Found(int row, Time now);

    std::chrono::milliseconds m_limit = TimeLimit;
    std::wstring m_text;
    int m_start = -1; // the row that had the focus before the first letter
    bool m_found = false;
    Time m_lastTyped;
};

#pragma once

#include <functional>
#include <utility>
#include <vector>

/// Tells of rows that have changed: of those of a command together at its end, of others at
/// once. For ten thousand rows it would take seconds to tell of each.
class RowChanges
{
public:
    using Handler = std::function<void(const std::vector<int>&)>;

    /// Called with the numbers of rows, in the order in which they have changed.
    void SetHandler(Handler handler) { m_handler = std::move(handler); }

    void Add(int row);

    /// What changes while one lives belongs together. They may stand within one another.
    class Command
    {
    public:
        explicit Command(RowChanges& changes) : m_changes(changes) { ++m_changes.m_depth; }
        ~Command();
        Command(const Command&) = delete;
        Command& operator=(const Command&) = delete;

    private:
        RowChanges& m_changes;
    };

private:
    void Tell();

    Handler m_handler;
    std::vector<int> m_rows;
    int m_depth = 0; // of the commands that run
};

#include "Explorer/RowChanges.h"

void RowChanges::Add(int row)
{
    m_rows.push_back(row);
    if (m_depth == 0)
    {
        Tell();
    }
}

RowChanges::Command::~Command()
{
    if (--m_changes.m_depth == 0)
    {
        m_changes.Tell();
    }
}

void RowChanges::Tell()
{
    // What is told of may change rows itself.
    const std::vector<int> rows = std::exchange(m_rows, {});
    if (!rows.empty() && m_handler)
    {
        m_handler(rows);
    }
}

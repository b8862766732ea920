#pragma once

#include "Compound/CompoundDocument.h"

#include <deque>

/// A listing that is complete when its maker is through with it.
class DefinitionEnumerator : public IFolderEnumerator
{
public:
    GDCompoundDefinition* Next() final;

protected:
    /// Adds a record at the end.
    void Append(const wchar_t* name, std::uint32_t kind) { m_definitions.emplace_back(name, kind); }

private:
    std::deque<GDCompoundDefinition> m_definitions; // records stay where they are
    std::uint32_t m_position = 0;
};

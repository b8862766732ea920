#include "Platform/Posix/CompoundFile/OpenScope.h"

#include "Platform/Posix/CompoundFile/EntryName.h"
#include "Platform/Posix/CompoundFile/Mode.h"

#include <utility>

namespace Platform::Posix::CompoundFile
{

OpenScope::~OpenScope()
{
    // One after the other: a chain of parents of which only this one was left may be long.
    std::shared_ptr<OpenScope> next = std::move(m_parent);
    while (next != nullptr && next.use_count() == 1)
    {
        next = std::exchange(next->m_parent, nullptr);
    }
}

bool OpenScope::IsAlive() const
{
    for (const OpenScope* scope = this; scope != nullptr; scope = scope->m_parent.get())
    {
        if (scope->m_closed)
        {
            return false;
        }
    }
    return true;
}

OpenMark::OpenMark(std::shared_ptr<OpenScope> scope, std::uint32_t child) : m_scope(std::move(scope)), m_child(child)
{
    m_scope->m_open.insert(child);
}

OpenMark::~OpenMark()
{
    m_scope->m_open.erase(m_child);
}

StorageStatus CheckChild(const OpenScope& scope, const std::wstring& name, std::uint32_t mode, std::uint32_t access,
                         std::u16string& units)
{
    if (const StorageStatus status = CheckChildMode(mode, access); status != StorageStatus::Done)
    {
        return status;
    }
    if (!scope.IsAlive())
    {
        return StorageStatus::AccessDenied;
    }
    std::optional<std::u16string> found = EntryName(name);
    if (!found)
    {
        return StorageStatus::InvalidName;
    }
    units = std::move(*found);
    return StorageStatus::Done;
}

} // namespace Platform::Posix::CompoundFile

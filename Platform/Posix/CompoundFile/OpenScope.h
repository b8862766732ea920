#pragma once

#include "Platform/StructuredStorage.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>

namespace Platform::Posix::CompoundFile
{

/// What an open storage is to its children: it knows which of them are open, since none is
/// opened twice, and outlives it to tell the rest of them that their parent is gone.
class OpenScope
{
public:
    explicit OpenScope(std::shared_ptr<OpenScope> parent) : m_parent(std::move(parent)) {}
    ~OpenScope();
    OpenScope(const OpenScope&) = delete;
    OpenScope& operator=(const OpenScope&) = delete;

    /// True until this storage or one above it is closed.
    bool IsAlive() const;

    void Close() { m_closed = true; }

    bool IsOpen(std::uint32_t child) const { return m_open.contains(child); }

private:
    friend class OpenMark;

    std::shared_ptr<OpenScope> m_parent;
    std::unordered_set<std::uint32_t> m_open;
    bool m_closed = false;
};

/// Held by an open child for as long as it is open.
class OpenMark
{
public:
    OpenMark(std::shared_ptr<OpenScope> scope, std::uint32_t child);
    ~OpenMark();
    OpenMark(const OpenMark&) = delete;
    OpenMark& operator=(const OpenMark&) = delete;

    /// True until a storage above the child is closed.
    bool IsAlive() const { return m_scope->IsAlive(); }

    const std::shared_ptr<OpenScope>& Parent() const { return m_scope; }

private:
    std::shared_ptr<OpenScope> m_scope;
    std::uint32_t m_child;
};

/// What is looked at before anything in an open storage is opened or made: the mode, which must
/// have the document's access, whether the storage is still open, and the name, whose units are
/// given back.
StorageStatus CheckChild(const OpenScope& scope, const std::wstring& name, std::uint32_t mode, std::uint32_t access,
                         std::u16string& units);

} // namespace Platform::Posix::CompoundFile

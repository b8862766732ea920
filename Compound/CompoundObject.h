#pragma once

#include "Compound/CompoundDocument.h"

#include <memory>
#include <new>

/// What documents, folders and files of every flavour have in common.
class CompoundObject
{
public:
    /// Copies the name; null stays null. The parent isn't owned, and owns this object.
    CompoundObject(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name);
    virtual ~CompoundObject();
    CompoundObject(const CompoundObject&) = delete;
    CompoundObject& operator=(const CompoundObject&) = delete;

    /// Ends the object, which is only destroyed afterwards.
    virtual bool Close() = 0;

    /// True if the modes have a bit in common.
    bool SharesMode(std::uint32_t mode) const { return (m_mode & mode) != 0; }

    std::uint32_t Mode() const { return m_mode; }
    ICompoundFolder* Parent() const { return m_parent; }
    const wchar_t* Name() const { return m_name.get(); }

private:
    std::uint32_t m_mode;
    ICompoundFolder* m_parent; // null for documents and roots
    std::unique_ptr<wchar_t[]> m_name;
};

/// A copy of the text; null stays null.
std::unique_ptr<wchar_t[]> CopyText(const wchar_t* text);

/// What `make` gives, or null if memory runs out: nothing is thrown across the interfaces.
template <typename Make>
auto NullWithoutMemory(Make&& make) -> decltype(make())
{
    try
    {
        return make();
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
}

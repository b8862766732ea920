#pragma once

#include "Compound/CompoundObject.h"
#include "Platform/Text.h"

#include <functional>
#include <map>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <utility>

/// What folders of every flavour do alike: they own what was opened through them and close
/// it. `Object` is the flavour's base of all objects. Opening is the flavour's own.
template <typename Object>
class CompoundFolderOf : public Object, public ICompoundFolder
{
public:
    CompoundFolderOf(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name) : Object(mode, parent, name) {}

    /// What is still open goes without being closed.
    ~CompoundFolderOf() override { Empty(false); }

    bool CloseFolder(ICompoundFolder* folder) final { return CloseChild(folder); }
    bool CloseFile(ICompoundFile* file) final { return CloseChild(file); }
    ICompoundFolder* GetParent() final { return Object::Parent(); }
    const wchar_t* GetName() final { return Object::Name(); }

    bool HasChild(const wchar_t* name) final
    {
        try
        {
            return name != nullptr && m_openedNames.contains(Platform::ToLower(name));
        }
        catch (const std::bad_alloc&)
        {
            return false;
        }
    }

    IFolderEnumerator** ReleaseEnumerator(IFolderEnumerator** enumerator) final
    {
        if (enumerator != nullptr)
        {
            delete std::exchange(*enumerator, nullptr);
        }
        return enumerator;
    }

    /// Closes and deletes the children, in the order of their addresses.
    bool Close() override
    {
        Empty(true);
        return true;
    }

protected:
    /// The first open child of that name in the order of addresses; null if there is none.
    Object* FindChild(const wchar_t* name) const
    {
        const std::wstring folded = Platform::ToLower(name);
        const auto found = m_childNames.lower_bound({ folded, nullptr });
        return found != m_childNames.end() && found->first == folded ? found->second : nullptr;
    }

    /// Takes a child that was opened under its name.
    template <typename Child>
    Child* Adopt(std::unique_ptr<Child> child)
    {
        Child* const opened = child.get();
        Object* const object = opened;
        const std::wstring folded = Platform::ToLower(object->Name());
        m_openedNames.insert(folded);
        const auto name = m_childNames.emplace(folded, object).first;
        try
        {
            m_children.emplace(object, OpenChild{ std::move(child), name });
        }
        catch (...)
        {
            m_childNames.erase(name);
            throw;
        }
        return opened;
    }

private:
    using ChildNames = std::set<std::pair<std::wstring, Object*>>;

    struct OpenChild
    {
        std::unique_ptr<Object> object;
        typename ChildNames::const_iterator name; // so that closing needs no memory
    };

    std::unique_ptr<Object> TakeOut(Object* child)
    {
        const auto found = m_children.find(child);
        if (found == m_children.end())
        {
            return std::unique_ptr<Object>(child);
        }
        m_childNames.erase(found->second.name);
        std::unique_ptr<Object> taken = std::move(found->second.object);
        m_children.erase(found);
        return taken;
    }

    template <typename Child>
    bool CloseChild(Child* child)
    {
        const bool isOurs = child != nullptr && child->GetParent() == this;
        auto* const object = isOurs ? dynamic_cast<Object*>(child) : nullptr;
        return object != nullptr && TakeOut(object)->Close();
    }

    /// Each folder is emptied before its turn comes, so that folders in folders take no
    /// stack, however deep an archive nests them.
    void Empty(bool close)
    {
        CompoundFolderOf* folder = this;
        while (folder != this || !folder->m_children.empty())
        {
            if (folder->m_children.empty())
            {
                folder = static_cast<CompoundFolderOf*>(folder->GetParent());
                continue;
            }
            Object* const child = folder->m_children.begin()->first;
            auto* const inner = dynamic_cast<CompoundFolderOf*>(child);
            if (inner != nullptr && !inner->m_children.empty())
            {
                folder = inner;
                continue;
            }
            const std::unique_ptr<Object> taken = folder->TakeOut(child);
            if (close)
            {
                taken->Close();
            }
        }
    }

    std::map<Object*, OpenChild, std::less<>> m_children;
    ChildNames m_childNames;              // of those, in lower case
    std::set<std::wstring> m_openedNames; // in lower case; never shrinks
};

#include "Compound/CompoundObject.h"

#include <algorithm>
#include <string_view>

std::unique_ptr<wchar_t[]> CopyText(const wchar_t* text)
{
    if (text == nullptr)
    {
        return nullptr;
    }
    const std::size_t size = std::wstring_view(text).size() + 1;
    auto copy = std::make_unique<wchar_t[]>(size);
    std::copy_n(text, size, copy.get());
    return copy;
}

CompoundObject::CompoundObject(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name)
    : m_mode(mode), m_parent(parent), m_name(CopyText(name))
{
}

CompoundObject::~CompoundObject() = default;

GDCompoundDefinition::GDCompoundDefinition(const wchar_t* name, std::uint32_t kind)
    : m_name(CopyText(name)), m_kind(kind)
{
}

GDCompoundDefinition::~GDCompoundDefinition() = default;

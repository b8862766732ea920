#pragma once

#include <Vantrel/Export.h>

#include <cstdint>

class CQoxRule;

/// Growing array of rule pointers. Owns its storage, never the rules.
///
/// The elements beyond `GetSize` up to the capacity can be read and are null as long as
/// they were never used; walks over rule trees rely on that for the first two.
class VANTREL_API PointerArray
{
public:
    PointerArray();
    PointerArray(const PointerArray& other);
    PointerArray& operator=(const PointerArray& other);
    PointerArray(PointerArray&& other) noexcept;
    PointerArray& operator=(PointerArray&& other) noexcept;
    ~PointerArray();

    /// Appends a pointer; null is stored like any other.
    void Add(CQoxRule* rule);

    /// Removes the first element that equals the pointer; the tail moves down by one.
    /// False if there is none.
    bool Remove(const CQoxRule* rule);

    bool Contains(const CQoxRule* rule) const;

    /// Forgets all elements and keeps the storage.
    void RemoveAll();

    std::int32_t GetSize() const { return m_size; }
    std::int32_t GetCapacity() const { return m_capacity; }
    bool IsEmpty() const { return m_size == 0; }

    /// No bounds check: the index lies below the capacity.
    CQoxRule*& operator[](std::int32_t index) { return m_data[index]; }
    CQoxRule* operator[](std::int32_t index) const { return m_data[index]; }

    CQoxRule** begin() { return m_data; }
    CQoxRule** end() { return m_data + m_size; }
    CQoxRule* const* begin() const { return m_data; }
    CQoxRule* const* end() const { return m_data + m_size; }

private:
    CQoxRule** m_data;
    std::int32_t m_size = 0;
    std::int32_t m_capacity;
    std::int32_t m_grow;
};

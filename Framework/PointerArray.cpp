#include <Vantrel/PointerArray.h>

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace
{

constexpr std::int32_t InitialCapacity = 10;
constexpr std::int32_t InitialGrow = 1;

} // namespace

PointerArray::PointerArray()
    : m_data(new CQoxRule*[InitialCapacity]()), m_capacity(InitialCapacity), m_grow(InitialGrow)
{
}

PointerArray::PointerArray(const PointerArray& other)
    : m_data(new CQoxRule*[static_cast<std::size_t>(other.m_capacity)]()), m_size(other.m_size),
      m_capacity(other.m_capacity), m_grow(other.m_grow)
{
    std::copy_n(other.m_data, m_size, m_data);
}

PointerArray& PointerArray::operator=(const PointerArray& other)
{
    PointerArray copy(other);
    return *this = std::move(copy);
}

PointerArray::PointerArray(PointerArray&& other) noexcept : PointerArray()
{
    *this = std::move(other);
}

PointerArray& PointerArray::operator=(PointerArray&& other) noexcept
{
    std::swap(m_data, other.m_data);
    std::swap(m_size, other.m_size);
    std::swap(m_capacity, other.m_capacity);
    std::swap(m_grow, other.m_grow);
    return *this;
}

PointerArray::~PointerArray()
{
    delete[] m_data;
}

void PointerArray::Add(CQoxRule* rule)
{
    if (m_size >= m_capacity)
    {
        if (m_capacity > std::numeric_limits<std::int32_t>::max() - m_grow)
        {
            throw std::bad_alloc();
        }
        const std::int32_t newCapacity = m_capacity + m_grow;
        CQoxRule** newData = new CQoxRule*[static_cast<std::size_t>(newCapacity)]();
        std::copy_n(m_data, m_size, newData);
        delete[] m_data;
        m_data = newData;
        m_capacity = newCapacity;
        // In 64 bits, since the 1.2-fold of a large step leaves 32.
        m_grow = m_grow < 10 ? m_grow + 3
                             : static_cast<std::int32_t>(std::min<std::int64_t>(
                                   std::int64_t{ m_grow } * 12 / 10, std::numeric_limits<std::int32_t>::max()));
    }
    m_data[m_size] = rule;
    ++m_size;
}

bool PointerArray::Remove(const CQoxRule* rule)
{
    CQoxRule** const found = std::find(begin(), end(), rule);
    if (found == end())
    {
        return false;
    }
    std::copy(found + 1, end(), found);
    --m_size;
    return true;
}

bool PointerArray::Contains(const CQoxRule* rule) const
{
    return std::find(begin(), end(), rule) != end();
}

void PointerArray::RemoveAll()
{
    std::fill_n(m_data, m_size, nullptr);
    m_size = 0;
}

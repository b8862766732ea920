#include "Platform/Posix/Descriptor.h"

#include <unistd.h>
#include <utility>

namespace Platform::Posix
{

Descriptor::~Descriptor()
{
    if (m_file >= 0)
    {
        ::close(m_file);
    }
}

Descriptor::Descriptor(Descriptor&& other) noexcept : m_file(std::exchange(other.m_file, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    std::swap(m_file, other.m_file);
    return *this;
}

} // namespace Platform::Posix

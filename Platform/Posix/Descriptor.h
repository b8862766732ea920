#pragma once

namespace Platform::Posix
{

/// A file descriptor that is closed at the end.
class Descriptor
{
public:
    explicit Descriptor(int file = -1) : m_file(file) {}
    ~Descriptor();
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return m_file; }
    explicit operator bool() const { return m_file >= 0; }

private:
    int m_file = -1;
};

} // namespace Platform::Posix

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

/// Hashes, made by the system's own service.
namespace Platform
{

/// The MD5 of bytes that come in pieces.
class Md5
{
public:
    Md5();
    ~Md5();
    Md5(const Md5&) = delete;
    Md5& operator=(const Md5&) = delete;

    /// Takes the next bytes. `data` may be null if there are none.
    void Add(const void* data, std::size_t size);

    /// The hash of all bytes so far as 32 lower-case hexadecimal digits; nothing if the
    /// system's service failed. Called once, at the end.
    std::optional<std::string> Finish();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace Platform

#include "Platform/Hash.h"

#include <array>
#include <cstdint>
#include <md5.h>

namespace Platform
{

struct Md5::State
{
    MD5_CTX context = {};
};

Md5::Md5() : m_state(std::make_unique<State>())
{
    MD5Init(&m_state->context);
}

Md5::~Md5() = default;

void Md5::Add(const void* data, std::size_t size)
{
    if (size != 0)
    {
        MD5Update(&m_state->context, static_cast<const std::uint8_t*>(data), size);
    }
}

std::optional<std::string> Md5::Finish()
{
    std::array<std::uint8_t, MD5_DIGEST_LENGTH> digest = {};
    MD5Final(digest.data(), &m_state->context);
    constexpr const char* Digits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : digest)
    {
        text += Digits[byte >> 4];
        text += Digits[byte & 0xF];
    }
    return text;
}

} // namespace Platform

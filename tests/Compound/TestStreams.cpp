#include "tests/Compound/TestStreams.h"

#include <algorithm>
#include <array>
#include <random>
#include <utility>

TestSource::TestSource(std::string text, std::vector<std::uint32_t> portions)
    : m_text(std::move(text)), m_portions(std::move(portions))
{
}

std::uint32_t TestSource::Read(void* buffer, std::uint32_t count)
{
    const std::uint32_t portion = asked.size() < m_portions.size() ? m_portions[asked.size()] : count;
    asked.push_back(count);
    const std::size_t taken = std::min<std::size_t>(std::min(count, portion), m_text.size() - m_position);
    std::copy_n(m_text.data() + m_position, taken, static_cast<char*>(buffer));
    m_position += taken;
    return static_cast<std::uint32_t>(taken);
}

std::uint32_t TestSink::Write(const void* buffer, std::uint32_t count)
{
    given.push_back(count);
    const std::size_t taken = std::min<std::size_t>(count, m_limit - bytes.size());
    bytes.append(static_cast<const char*>(buffer), taken);
    return static_cast<std::uint32_t>(taken);
}

std::string ReadToEnd(IInputStream& stream)
{
    std::string result;
    std::array<char, 5000> block = {};
    while (const std::uint32_t count = stream.Read(block.data(), static_cast<std::uint32_t>(block.size())))
    {
        result.append(block.data(), count);
    }
    return result;
}

std::string SampleText(std::size_t size)
{
    std::string text;
    std::minstd_rand random(7);
    while (text.size() < size)
    {
        text += "If Hole" + std::to_string(random() % 5000) + ".Depth > " + std::to_string(random() % 90) +
                " Then Report \"too deep\"\r\n";
    }
    text.resize(size);
    return text;
}

std::string Noise(std::size_t size)
{
    std::string bytes(size, '\0');
    std::minstd_rand random(11);
    std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random() >> 8); });
    return bytes;
}

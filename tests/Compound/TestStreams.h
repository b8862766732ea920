#pragma once

#include "Compound/CompoundDocument.h"
#include "Compound/IOMemoryStream.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Delivers a text, no more than so many bytes at a time, and remembers what was asked for.
class TestSource final : public IInputStream
{
public:
    explicit TestSource(std::string text, std::vector<std::uint32_t> portions = {});

    std::uint32_t Read(void* buffer, std::uint32_t count) override;

    std::vector<std::uint32_t> asked;

private:
    std::string m_text;
    std::vector<std::uint32_t> m_portions; // of the first reads
    std::size_t m_position = 0;
};

/// Takes bytes up to a limit.
class TestSink final : public IOutputStream
{
public:
    explicit TestSink(std::size_t limit = SIZE_MAX) : m_limit(limit) {}

    std::uint32_t Write(const void* buffer, std::uint32_t count) override;

    std::string bytes;
    std::vector<std::uint32_t> given;

private:
    std::size_t m_limit;
};

/// All that the stream has left to deliver.
std::string ReadToEnd(IInputStream& stream);

/// Bytes that look like a script, and no two pieces of which are alike.
std::string SampleText(std::size_t size);

/// Bytes that can't be compressed.
std::string Noise(std::size_t size);

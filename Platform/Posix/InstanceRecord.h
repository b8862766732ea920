#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// What a later instance sends to the first: a size of 32 bits, low byte first, and as many
/// bytes: a path in 16-bit units with its terminator, or none if only the window is to come
/// to the front. The first one answers with one byte.
namespace Platform::Posix
{

/// The longest path that is sent or taken, in bytes with its terminator.
constexpr std::size_t MostRecordBytes = 65536;

constexpr char AnswerAccepted = 1;
constexpr char AnswerRefused = 0;

/// The record of a path; of none if it is empty. Nothing if it is too long.
std::optional<std::string> MakeInstanceRecord(const std::wstring& path);

/// Takes a record from a socket piece by piece.
class InstanceRecordReader
{
public:
    enum class Progress
    {
        Waiting,
        Complete,
        Broken, ///< It ended early, isn't a record, or can't be read.
    };

    /// Reads what is there now, without waiting. `socket` must not block.
    Progress Read(int socket);

    /// The path's bytes once the record is complete. Aligned for 16-bit units.
    const std::vector<char>& Bytes() const { return m_bytes; }

private:
    bool TakeSize();

    std::vector<char> m_size;
    std::vector<char> m_bytes;
    std::size_t m_expected = 0;
};

} // namespace Platform::Posix

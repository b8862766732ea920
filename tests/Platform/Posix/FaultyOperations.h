#pragma once

#include "Platform/Posix/FileOperations.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <string>
#include <vector>

/// Passes everything on, but for one call of one kind, which fails.
class FaultyOperations : public Platform::Posix::FileOperations
{
public:
    enum class Call
    {
        None,
        Open,
        Read,
        Write,
        ChangeOwner,
        Reserve,
        Truncate,
        Sync,
        Close,
        Rename,
    };

    FaultyOperations(Call call, int number, int error) : m_call(call), m_number(number), m_error(error) {}

    bool HasFailed() const { return m_number <= 0; }
    const std::vector<Call>& Calls() const { return m_calls; }

    /// No more bytes than this go through one call.
    std::size_t mostAtOnce = SIZE_MAX;

    int Open(const std::string& path, int flags, mode_t mode) override
    {
        return Fails(Call::Open) ? -1 : FileOperations::Open(path, flags, mode);
    }
    ssize_t Read(int file, void* data, std::size_t size) override
    {
        return Fails(Call::Read) ? -1 : FileOperations::Read(file, data, std::min(size, mostAtOnce));
    }
    ssize_t Write(int file, const void* data, std::size_t size) override
    {
        return Fails(Call::Write) ? -1 : FileOperations::Write(file, data, std::min(size, mostAtOnce));
    }
    int ChangeOwner(int file, uid_t user, gid_t group) override
    {
        return Fails(Call::ChangeOwner) ? -1 : FileOperations::ChangeOwner(file, user, group);
    }
    int Reserve(int file, off_t size) override
    {
        return Fails(Call::Reserve) ? -1 : FileOperations::Reserve(file, size);
    }
    int Truncate(int file, off_t size) override
    {
        return Fails(Call::Truncate) ? -1 : FileOperations::Truncate(file, size);
    }
    int Sync(int file) override { return Fails(Call::Sync) ? -1 : FileOperations::Sync(file); }
    int Close(int file) override
    {
        const int result = FileOperations::Close(file);
        return Fails(Call::Close) ? -1 : result;
    }
    int Rename(const std::string& from, const std::string& to) override
    {
        return Fails(Call::Rename) ? -1 : FileOperations::Rename(from, to);
    }

private:
    bool Fails(Call call)
    {
        m_calls.push_back(call);
        const bool fails = call == m_call && --m_number == 0;
        if (fails)
        {
            errno = m_error;
        }
        return fails;
    }

    Call m_call;
    int m_number;
    int m_error;
    std::vector<Call> m_calls;
};

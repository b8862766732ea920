#include "Platform/Posix/FileLock.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace Platform::Posix
{

FileLock::FileLock(const std::string& path)
    : m_file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600))
{
}

bool FileLock::TryTake()
{
    int result = -1;
    do
    {
        result = m_file ? ::flock(m_file.Get(), LOCK_EX | LOCK_NB) : -1;
    } while (m_file && result != 0 && errno == EINTR);
    return result == 0;
}

bool FileLock::Take()
{
    // The lock is held for one small file's reading and writing. Who has it longer is stuck.
    constexpr auto MostWait = std::chrono::seconds(5);
    const auto end = std::chrono::steady_clock::now() + MostWait;
    while (!TryTake())
    {
        if (!IsOpen() || std::chrono::steady_clock::now() >= end)
        {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

} // namespace Platform::Posix

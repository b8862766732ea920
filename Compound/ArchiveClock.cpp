#include "Compound/ArchiveClock.h"

#include <ctime>

ArchiveTime CurrentArchiveTime()
{
    ArchiveTime result;
    const std::time_t now = std::time(nullptr);
    result.secondsSince1970 = now;
    // Null for a year that has no place in the calendar; the default stands then.
    if (const std::tm* const local = std::localtime(&now); local != nullptr)
    {
        result.year = local->tm_year + 1900;
        result.month = local->tm_mon + 1;
        result.day = local->tm_mday;
        result.hour = local->tm_hour;
        result.minute = local->tm_min;
        result.second = local->tm_sec;
    }
    return result;
}

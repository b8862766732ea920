#pragma once

#include <cstdint>
#include <functional>

/// A moment, as archives record it.
struct ArchiveTime
{
    std::int64_t secondsSince1970 = 0;
    // The same moment by the local clock; months and days count from 1.
    int year = 1980;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// Tells the time. Replaced where an archive has to have the same bytes each time.
using ArchiveClock = std::function<ArchiveTime()>;

/// The time by the system's clock.
ArchiveTime CurrentArchiveTime();

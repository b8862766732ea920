#pragma once

#include <ctime>

/// Tells the local time.
using LocalClock = std::tm (*)();

/// The system's local time.
std::tm CurrentLocalTime();

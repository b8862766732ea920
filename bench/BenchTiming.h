#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <malloc.h>
#include <stdexcept>
#include <vector>

/// Time of an action that starts as in a program that has just begun: without memory that an
/// earlier round has left to be used again. A program loads or saves a file now and then, and
/// small files would otherwise be measured with warm memory and large ones without.
template <typename Action>
double SecondsOf(Action&& action)
{
    malloc_trim(0);
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The value in the middle. There must be one.
inline double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// What is measured must have happened.
inline void Require(bool holds, const char* what)
{
    if (!holds)
    {
        throw std::runtime_error(what);
    }
}

// What the benchmarks share: the time of a job, and the middle one of several rounds.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <utility>
#include <vector>

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// As the first argument of the program asks; 5 without one.
inline int RoundsAsked(int argc, char** argv)
{
    return argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
}

template <typename Job>
double TimeOf(Job&& job)
{
    const auto start = Clock::now();
    std::forward<Job>(job)();
    return Seconds(Clock::now() - start).count();
}

inline double MedianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

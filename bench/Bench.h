// What the benchmarks share: the lines of the table that are asked for, the time of a job, and what bench/run reads.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// One line of the table: its name, and the job that measures it once, with all its peers and sizes, in turn.
struct Line
{
    std::string name;
    std::function<void()> round;
};

// The round of a line that needs something which takes long to make: it is made for the first round, and goes when the
// line is measured.
template <class Fixture>
std::function<void()> With(void (*round)(Fixture&))
{
    return [round, fixture = std::shared_ptr<Fixture>()]() mutable {
        if (!fixture)
            fixture = std::make_shared<Fixture>();
        round(*fixture);
    };
}

// Measures the lines that are named, all without a name, round after round. One round more goes before, which prints
// nothing: it takes the memory that the machine has not handed out yet, which costs several times that of the rest.
//
// usage: PROGRAM ROUNDS [LINE...]
//
// The exit status; what a round throws is told and ends the program.
int RunLines(int argc, char** argv, const std::vector<Line>& lines);

// Prints a figure of the present line: "line<tab>series<tab>size<tab>value". The size is that of the job where the line
// has several, in whatever the line counts, else 0; the value is in seconds, or in what the line says.
void Record(const std::string& series, double value, int size = 0);

template <typename Job>
double TimeOf(Job&& job)
{
    const auto start = Clock::now();
    std::forward<Job>(job)();
    return Seconds(Clock::now() - start).count();
}

// Ends the measuring where a job did not do all of its work.
void Expect(bool bTrue, const char* what);

#include "bench/Bench.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>

namespace
{

const Line* g_present = nullptr;
bool g_isWarmingUp = false;

bool IsAskedFor(const Line& line, const std::vector<std::string>& names)
{
    return names.empty() || std::ranges::find(names, line.name) != names.end();
}

void Measure(const Line& line, int rounds)
{
    g_present = &line;
    const std::function<void()> round = line.round; // a copy, which holds what the line needs
    g_isWarmingUp = true;
    round();
    g_isWarmingUp = false;
    for (int done = 0; done < rounds; ++done)
        round();
}

} // namespace

int RunLines(int argc, char** argv, const std::vector<Line>& lines)
{
    try
    {
        const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 1;
        const std::vector<std::string> names(argv + std::min(argc, 2), argv + argc);
        for (const Line& line : lines)
        {
            if (IsAskedFor(line, names))
                Measure(line, rounds);
        }
        return EXIT_SUCCESS;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s: %s\n", g_present ? g_present->name.c_str() : "bench", error.what());
        return EXIT_FAILURE;
    }
}

void Record(const std::string& series, double value, int size)
{
    if (g_isWarmingUp)
        return;
    std::printf("%s\t%s\t%d\t%.6f\n", g_present->name.c_str(), series.c_str(), size, value);
    std::fflush(stdout);
}

void Expect(bool bTrue, const char* what)
{
    if (!bTrue)
        throw std::runtime_error(what);
}

// The arguments that are answered before the program proper starts.
#pragma once

#include <string_view>

enum class StartOption
{
    None,
    Help,
    Version,
    Unknown,
};

struct StartRequest
{
    StartOption option = StartOption::None;
    std::string_view argument = {}; // as typed
};

// The first of the arguments that asks for an answer: `--help` or `-h`, `--version`, or one that begins with "--" and
// that nobody knows. All others are the program's own business.
StartRequest FindStartRequest(int argc, char** argv);

// The options that print something and end the program.
#pragma once

#include <optional>

// The exit status of a call that cannot be meant.
inline constexpr int kWrongUse = 2;

// Prints what the arguments ask for; gives the exit status, or nothing if the program is to start.
std::optional<int> AnswerStartOption(int argc, char** argv);

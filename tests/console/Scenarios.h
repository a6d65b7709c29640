// The program that these tests run on the console desktop: this executable once more, with the name of a scenario in
// the environment.
#pragma once

inline constexpr char kScenarioVariable[] = "CONSOLE_SCENARIO";

int RunScenario(int argc, char** argv);

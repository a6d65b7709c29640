// Programs as processes of their own.
#pragma once

#include <string>
#include <vector>

// Starts the first word, found on PATH, with the words as its arguments and never through a command shell. It outlives
// this process. 0, or the error number; EINVAL without words.
int StartProcess(std::vector<std::string> words);

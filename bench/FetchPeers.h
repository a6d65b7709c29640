// The tools that people use for the same job.
#pragma once

#include "platform/testing/TempHome.h"

#include <string>
#include <vector>

// Seconds that a tool takes to bring these paths of the server on a port of this machine into a new home, one after the
// other. Throws if it fails.
double TimeWget(const std::string& port, const std::vector<std::string>& paths, const TempHome& home);
double TimeCurl(const std::string& port, const std::vector<std::string>& paths, const TempHome& home);
double TimeAria(const std::string& port, const std::vector<std::string>& paths, const TempHome& home);

// The titles of pages as paths: "network::proxy" is the page "proxy" below "network". A backslash before "::" makes it
// part of a name, and two of them are one.
#pragma once

#include <string>

// Cuts the first component off a path and gives it as a name; the path is empty when that was the last one.
std::string NextPathComponent(std::string& path);

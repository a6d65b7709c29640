// Which of the three run modes a process is.
#pragma once

#include <string_view>

enum class RunMode
{
    Plain,   // the main window
    All,     // every page that is open in a browser window
    Current, // the pages named in a file
};

// Searches the whole command line, the program's own path included, for "/all" and then for "/current": a plain,
// case-sensitive search for a piece of text anywhere.
RunMode RunModeOf(std::string_view commandLine);

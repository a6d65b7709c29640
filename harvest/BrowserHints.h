// What a user is told who does not find the browser's pages.
#pragma once

#include "platform/browser/BrowserStates.h"

#include <string>
#include <vector>

// Each browser on a line, with its state and what helps below it; or that there is none.
std::string DescribeBrowsers(const std::vector<BrowserReport>& reports);

// What an empty list of windows says in place of rows: the one thing that helps most.
std::string EmptyListHint(const std::vector<BrowserReport>& reports);

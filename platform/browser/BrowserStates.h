// In what state the browsers of this machine are, for telling a user who is missing one.
#pragma once

#include <string>
#include <vector>

enum class BrowserState
{
    Open,       // it answers
    AsksUser,   // it answers, and asks its user before it lets a program in
    Stale,      // it was open, and has gone
    NotEnabled, // it does not listen, or was never there
    Taken,      // it answers, and another program has the one session that it gives
    Refused,    // it does not listen, and a policy of the machine forbids it to
};

struct BrowserReport
{
    std::string name;  // "Chromium"; of a place that somebody named, the place
    std::string place; // its data folder, or its address; as VANTROY_BROWSER takes it
    BrowserState state = BrowserState::NotEnabled;
    int pages = 0;              // that are open, sleeping ones too; 0 if it is not Open
    bool refusesButton = false; // the registry asks for a button on its toolbar, and it takes none

    bool operator==(const BrowserReport&) const = default;
};

// One for each data folder that stands, in the order of the window list, or one for each place of VANTROY_BROWSER. Asks
// no user, and opens no page. Waits up to 5 s for each browser that listens and does not answer, a Firefox 7 s. Any
// thread.
std::vector<BrowserReport> ReportBrowsers();

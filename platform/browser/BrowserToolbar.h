// The button on the browser's toolbar that a program asks for in the registry: a key below
// HKEY_LOCAL_MACHINE\Software\Microsoft\Internet Explorer\Extensions with the published class of a button that runs a
// program, and the values "ButtonText" and "Exec". It stands in the browser that vantroy-browser starts.
#pragma once

#include <memory>
#include <optional>

// Keeps the button as the registry has it for as long as it lives: writes or removes what that browser loads at its
// start, and tells a browser that is open. Failures are silent: the button is then not there. The user-interface
// thread.
class BrowserToolbar
{
public:
    BrowserToolbar();
    // Waits for what is under way, a few seconds at most.
    ~BrowserToolbar();
    BrowserToolbar(const BrowserToolbar&) = delete;
    BrowserToolbar& operator=(const BrowserToolbar&) = delete;

private:
    class Follower;
    const std::shared_ptr<Follower> m_follower;
};

// When it is the browser that has started this process, for a press of the button: runs the program that the registry
// names, and gives the status to leave with. Called first thing in main; needs no display.
std::optional<int> AnswerToolbarPress(int argc, char** argv);

// Which desktop a process gets.
#pragma once

#include "platform/window/Desktop_p.h"
#include "platform/window/console/ConsoleDesktop_p.h"

struct RunningDesktop
{
    std::unique_ptr<ConsoleDesktop> console; // null where windows are on show
    std::unique_ptr<Desktop> desktop;
};

// The desktop of the display; the console's if there is none, none that answers, or VANTROY_DESKTOP asks for it with
// the word "console". A platform that QT_QPA_PLATFORM names counts as a display. See Desktop for the thread.
RunningDesktop StartDesktop(int& argc, char** argv);

// The one application object of a test program, with the program's resources.
#pragma once

#include "resources/Resources.h"

#include "platform/window/WinApp.h"

inline void StartApplication()
{
    static CWinApp application;
    AfxSetResources(VantroyResources());
}

// What the desktop does on a program's behalf.
#pragma once

#include "platform/window/Handle.h"

// Opens a folder or an address in the desktop's own program for it (xdg-open), started as a process of its own and
// never through a command shell. Only the verbs "open" and "explore" exist, `parameters` and `directory` must be null;
// `showCommand` is not read. Above 32 if it could be started. A file that does not exist fails without a message.
long ShellExecuteA(HWND owner, const char* verb, const char* file, const char* parameters, const char* directory,
                   int showCommand);

// Opens addresses in the user's browser.
#pragma once

#include "platform/Types.h"

#include <string>

// Through the desktop; if that fails, with the command that the registry has for pages (".htm" under
// HKEY_CLASSES_ROOT): the command up to its "%1", a blank, and the address. The address is an argument of that command
// and nothing else: one that could be taken for an option or for several arguments is not opened.
//
// Above 32 if a program was started, else the platform's code: of the desktop's attempt if there is no command, else of
// the command's. Any thread; nothing is shown.
DWORD OpenUrl(const std::string& url, int showCommand);

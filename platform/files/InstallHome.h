// Where the program lives: the folder that holds its files (config.xml, History, the registry file, Download).
//
// VANTROY_HOME=DIR names it, from the folder that the program was started in; otherwise it is the executable's folder
// when the user can write there and it is not one that all programs share (/usr/bin, /usr/local/bin), otherwise (a
// packaged install) $XDG_DATA_HOME/vantroy. Any thread may call.
#pragma once

#include "platform/Types.h"

#include <string>

// The home folder, absolute, without a separator at its end.
std::string InstallHomeFolder();

// What an installer would have done, once at the start of the program: in a home without a registry file the value
// "InstallPath" of HKEY_CURRENT_USER\SOFTWARE\Orlenta\Vantroy is set to the home, and the folder Download made under
// it. Failures are silent: the program then starts without a default save folder.
void PrepareInstallHome();

// The path of the executable in the home folder (<home>/vantroy), zero-terminated and cut to `size` bytes. `module` is
// not read. Returns the length without the zero, `size` if it was cut.
DWORD GetModuleFileNameA(void* module, char* path, DWORD size);

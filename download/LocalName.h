// Which name an item gets in the save folder. Any thread.
#pragma once

#include "platform/Types.h"

#include <string>

// Finds a free place for `size` bytes: the path itself, else with 1, 2, 3 … before its last "." (at its end where it
// has none). True: `path` now names a place where nothing stands. False: a file of such a name with that very size is
// there already. The "." is searched in the whole path, folders included. A place that cannot be looked at counts as
// free.
bool FindLocalName(std::string& path, DWORD size);

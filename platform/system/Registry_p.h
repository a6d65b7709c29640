// Who else wants to know of changes.
#pragma once

#include "platform/system/Registry.h"

#include <functional>
#include <string>

// Told of each change that this process has made, on the thread that made it: the root, and the path of the key from
// there. One at a time; null ends it. A call that is under way may still come to its end.
using RegistryWatcher = std::function<void(HKEY root, const std::string& path)>;
void SetRegistryWatcher(RegistryWatcher watcher);

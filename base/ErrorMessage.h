#pragma once

#include "platform/Types.h"

// Shows the system's text for an error code in a message box; nothing if the system has none. Any thread.
void ShowErrorMessage(DWORD code);

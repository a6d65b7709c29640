// The browser of vantroy-browser while it is open. Its program may be one that takes no unpacked extension.
#pragma once

#include "platform/com/Unknown.h"

namespace toolbar
{

// Has it load the extension from its folder, or load it anew. RPC_E_DISCONNECTED if the browser is not open, E_FAIL if
// it refuses. Waits a few seconds at most.
HRESULT LoadIntoBrowser();
// As long as the extension's files are there.
HRESULT TakeFromBrowser();

} // namespace toolbar

#pragma once

#include "platform/browser/BrowserStates.h"
#include "platform/browser/Places_p.h"

namespace browsing::devtools
{

// The state and the pages of the browser at a place, by plain HTTP requests alone.
void Inquire(const Place& place, BrowserReport& report);

} // namespace browsing::devtools

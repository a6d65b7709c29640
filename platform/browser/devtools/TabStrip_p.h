// The pages of one browser in the order in which the user sees their tabs.
#pragma once

#include "platform/browser/devtools/Connection_p.h"

#include <vector>

namespace browsing::devtools
{

// Window after window in the order in which they were opened, in each the pages by their place in the tab strip; then
// pages that stand in no tab. Attaches to those that are new.
HRESULT ListPages(Connection& browser, Deadline deadline, std::vector<Attached>& pages);

} // namespace browsing::devtools

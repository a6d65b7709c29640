// The pages of one browser in the order in which the user sees their tabs.
#pragma once

#include "platform/browser/Connection_p.h"

#include <QString>

#include <vector>

namespace browsing::bidi
{

// The contexts of the pages, window after window, in each by their place in the tab strip. Sleeping tabs have none.
HRESULT ListPages(Connection& browser, Deadline deadline, std::vector<QString>& contexts);

} // namespace browsing::bidi

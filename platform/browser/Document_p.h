// One window of the collection with its document.
#pragma once

#include "platform/browser/Browser_p.h"
#include "platform/browser/ObjectModel.h"

namespace browsing
{

// Throws std::bad_alloc.
CComPtr<IDispatch> MakeWindow(SeenPage page);

} // namespace browsing

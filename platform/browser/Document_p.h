// One window of the collection with its document.
#pragma once

#include "platform/browser/ObjectModel.h"
#include "platform/browser/devtools/Browser_p.h"

namespace devtools
{

// Throws std::bad_alloc.
CComPtr<IDispatch> MakeWindow(SeenPage page);

} // namespace devtools

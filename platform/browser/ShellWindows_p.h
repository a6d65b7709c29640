// The window collection over the running browsers.
#pragma once

#include "platform/browser/BrowserList_p.h"
#include "platform/com/ComPtr.h"

#include <memory>

namespace browsing
{

// Fails if a browser that was named does not answer. Throws std::bad_alloc.
HRESULT MakeShellWindows(const std::shared_ptr<BrowserList>& browsers, CComPtr<IUnknown>& object);

} // namespace browsing

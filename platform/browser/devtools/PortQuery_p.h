// The plain HTTP requests of the protocol: what listens at a port, and with how many pages?
#pragma once

#include "platform/com/Unknown.h"

#include <string>

namespace browsing::devtools
{

struct Version
{
    HRESULT result = RPC_E_DISCONNECTED; // S_OK if a server answered at all
    bool notFound = false;               // 404
    std::string socketPath;              // path of the browser's WebSocket, empty if it was not told
};

// GET http://AUTHORITY/json/version, with a limit of a few seconds.
Version AskVersion(const std::string& authority);
// GET http://AUTHORITY/json/list, in the same way. The number of pages; 0 without an answer.
int CountPages(const std::string& authority);

} // namespace browsing::devtools

// Where browsers of this protocol may be waiting, and whether one is.
#pragma once

#include "platform/browser/Places_p.h"

#include <string>
#include <vector>

namespace browsing::devtools
{

// The data folders of all browsers known, whether or not they stand.
std::vector<Place> KnownPlaces(const UserFolders& folders);

struct Endpoint
{
    std::string authority; // "127.0.0.1:9222"
    std::string socketUrl; // "ws://127.0.0.1:9222/devtools/browser/…"
    bool asksUser = false; // the browser asks its user before it lets us in
};

// RPC_E_DISCONNECTED if no browser answers there, E_INVALIDARG for an address that is not of this machine.
HRESULT Resolve(const Place& place, Endpoint& endpoint);
// Whether a browser has told of a port in the data folder, be it open still or not.
bool HasPortFile(const std::string& folder);

} // namespace browsing::devtools

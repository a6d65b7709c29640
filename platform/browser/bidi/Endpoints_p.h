// Where browsers of this protocol may be waiting.
#pragma once

#include "platform/browser/Places_p.h"

#include <string>
#include <vector>

namespace browsing::bidi
{

// The profile folders of Firefox that stand.
std::vector<Place> KnownPlaces(const UserFolders& folders);
// Whether a place that was named, an address or a folder, is one of this protocol.
bool IsPlace(const std::string& text);

// "ws://127.0.0.1:46741/session". RPC_E_DISCONNECTED if the profile names no port, E_INVALIDARG for an address that is
// not of this machine. Connects to nothing.
HRESULT Resolve(const Place& place, std::string& socketUrl);

// Whether a browser has told of a port in the folder, be it open still or not.
bool HasServerFile(const std::string& folder);

} // namespace browsing::bidi

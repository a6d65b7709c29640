// Where browsers may be waiting, and whether one is.
#pragma once

#include "platform/browser/PendingReply_p.h"

#include <string>
#include <vector>

namespace devtools
{

// "http://127.0.0.1:9222", "ws://127.0.0.1:9222/devtools/browser/…", or a folder.
struct Place
{
    std::string text;
    bool named = false;    // by VANTROY_BROWSER: its browser has to answer
    std::string name = {}; // of the browser, for a data folder that nobody named

    bool operator==(const Place&) const = default;
};

// The places of VANTROY_BROWSER, or else the data folders of all browsers known, whether or not they stand. Reads the
// environment and the disk.
std::vector<Place> FindPlaces();

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

} // namespace devtools

// The protocols by which browsers are reached; which one is spoken at a place, its own folder beside this one knows.
#pragma once

#include "platform/browser/BrowserStates.h"
#include "platform/browser/Browser_p.h"

#include <memory>
#include <vector>

namespace browsing
{

std::vector<Place> KnownPlaces(const UserFolders& folders);
// The one spoken at a place that was named.
Protocol ProtocolOf(const std::string& place);
std::shared_ptr<Browser> MakeBrowser(const Place& place, const std::shared_ptr<IoThread>& io);
// The state and the pages of the browser at a place.
void Inquire(const Place& place, BrowserReport& report);

} // namespace browsing

// What a page has loaded, as its browser tells it.
#pragma once

#include "platform/browser/Browser_p.h"

#include <memory>
#include <vector>

namespace browsing::devtools
{

// Takes a frame tree of Page.getResourceTree, that of a page with the session. Left out is what the browser does not
// surely hold as the server sent it.
void AddResources(const std::shared_ptr<browsing::Connection>& connection, const QString& session,
                  const QJsonObject& tree, std::vector<LoadedResource>& resources);

} // namespace browsing::devtools

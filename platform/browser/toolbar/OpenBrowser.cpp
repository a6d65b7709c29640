#include "platform/browser/toolbar/OpenBrowser_p.h"

#include "platform/browser/Connection_p.h"
#include "platform/browser/IoThread_p.h"
#include "platform/browser/devtools/Endpoints_p.h"
#include "platform/browser/toolbar/ExtensionFiles_p.h"

namespace toolbar
{
namespace
{

using namespace browsing;

constexpr std::chrono::seconds kLimit(3);

Command Load()
{
    return {"Extensions.loadUnpacked", {{"path", QString::fromStdString(ExtensionFolder().string())}}, {}};
}

Command Uninstall()
{
    return {"Extensions.uninstall", {{"id", kExtensionId}}, {}};
}

// A connection of its own: the button has nothing to do with the pages, and whoever presses a key of the settings sheet
// does not wait for it. A browser that asks its user is not asked for a button.
HRESULT Tell(const std::vector<Command>& commands)
{
    devtools::Endpoint endpoint;
    const HRESULT resolved = devtools::Resolve({BrowserFolder().string()}, endpoint);
    if (FAILED(resolved) || endpoint.asksUser)
        return RPC_E_DISCONNECTED;
    Connection connection(std::make_shared<IoThread>());
    const Deadline deadline = Clock::now() + kLimit;
    HRESULT result = connection.Open(endpoint.socketUrl, deadline);
    for (const Command& command : commands)
    {
        if (SUCCEEDED(result))
            result = connection.Call(command, deadline).result;
    }
    return result;
}

} // namespace

HRESULT LoadIntoBrowser()
{
    return Tell({Load()});
}

// An extension that was named on the command line can be taken out once it was loaded in this way as well.
HRESULT TakeFromBrowser()
{
    return Tell({Load(), Uninstall()});
}

} // namespace toolbar

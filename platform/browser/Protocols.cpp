#include "platform/browser/Protocols_p.h"

#include "platform/browser/devtools/Browser_p.h"
#include "platform/browser/devtools/Endpoints_p.h"
#include "platform/browser/devtools/State_p.h"

namespace browsing
{

std::vector<Place> KnownPlaces(const UserFolders& folders)
{
    return devtools::KnownPlaces(folders);
}

std::shared_ptr<Browser> MakeBrowser(const Place& place, const std::shared_ptr<IoThread>& io)
{
    return std::make_shared<devtools::Browser>(place, io);
}

void Inquire(const Place& place, BrowserReport& report)
{
    devtools::Inquire(place, report);
}

} // namespace browsing

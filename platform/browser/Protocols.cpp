#include "platform/browser/Protocols_p.h"

#include "platform/browser/IoThread_p.h"
#include "platform/browser/bidi/Browser_p.h"
#include "platform/browser/bidi/Endpoints_p.h"
#include "platform/browser/devtools/Browser_p.h"
#include "platform/browser/devtools/Endpoints_p.h"
#include "platform/browser/devtools/State_p.h"

namespace browsing
{

std::vector<Place> KnownPlaces(const UserFolders& folders)
{
    std::vector<Place> places = devtools::KnownPlaces(folders);
    const std::vector<Place> others = bidi::KnownPlaces(folders);
    places.insert(places.end(), others.begin(), others.end());
    return places;
}

Protocol ProtocolOf(const std::string& place)
{
    return bidi::IsPlace(place) ? Protocol::BiDi : Protocol::DevTools;
}

std::shared_ptr<Browser> MakeBrowser(const Place& place, const std::shared_ptr<IoThread>& io)
{
    if (place.protocol == Protocol::BiDi)
        return std::make_shared<bidi::Browser>(place, io);
    return std::make_shared<devtools::Browser>(place, io);
}

void Inquire(const Place& place, BrowserReport& report)
{
    if (place.protocol == Protocol::BiDi)
        bidi::Browser(place, std::make_shared<IoThread>()).Inquire(report);
    else
        devtools::Inquire(place, report);
}

} // namespace browsing

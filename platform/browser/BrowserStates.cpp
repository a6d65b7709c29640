#include "platform/browser/BrowserStates.h"

#include "platform/browser/devtools/Endpoints_p.h"
#include "platform/browser/devtools/Policies_p.h"
#include "platform/browser/devtools/PortQuery_p.h"

#include <algorithm>
#include <filesystem>

namespace devtools
{
namespace
{

bool IsAddress(const Place& place)
{
    return place.text.find("://") != std::string::npos;
}

BrowserState StateWithoutAnswer(const Place& place)
{
    if (!IsAddress(place) && HasPortFile(place.text))
        return BrowserState::Stale;
    return IsDebuggingForbidden(place.name) ? BrowserState::Refused : BrowserState::NotEnabled;
}

BrowserReport Report(const Place& place)
{
    BrowserReport report{place.name.empty() ? place.text : place.name, place.text};
    Endpoint endpoint;
    if (FAILED(Resolve(place, endpoint)))
    {
        report.state = StateWithoutAnswer(place);
        return report;
    }
    report.state = endpoint.asksUser ? BrowserState::AsksUser : BrowserState::Open;
    if (!endpoint.asksUser)
        report.pages = CountPages(endpoint.authority);
    return report;
}

} // namespace
} // namespace devtools

std::vector<BrowserReport> ReportBrowsers()
{
    std::vector<BrowserReport> reports;
    for (const devtools::Place& place : devtools::FindPlaces())
    {
        std::error_code none;
        if (place.named || std::filesystem::is_directory(place.text, none))
            reports.push_back(devtools::Report(place));
    }
    return reports;
}

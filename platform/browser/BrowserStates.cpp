#include "platform/browser/BrowserStates.h"

#include "platform/browser/Protocols_p.h"

#include <filesystem>

std::vector<BrowserReport> ReportBrowsers()
{
    std::vector<BrowserReport> reports;
    for (const browsing::Place& place : browsing::FindPlaces())
    {
        std::error_code none;
        if (!place.named && !std::filesystem::is_directory(place.text, none))
            continue;
        reports.push_back({place.name.empty() ? place.text : place.name, place.text});
        browsing::Inquire(place, reports.back());
    }
    return reports;
}

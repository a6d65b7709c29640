#include "harvest/BrowserHints.h"

#include "base/FormatText.h"
#include "resources/ResourceIds.h"

#include "platform/window/Resource.h"

#include <algorithm>

namespace
{

std::string DescribeState(const BrowserReport& report)
{
    switch (report.state)
    {
    case BrowserState::Open:
        return FormatText(IDS_BROWSER_OPEN, "%d", std::to_string(report.pages));
    case BrowserState::AsksUser:
        return AfxLoadString(IDS_BROWSER_ASKS);
    case BrowserState::Stale:
        return AfxLoadString(IDS_BROWSER_STALE);
    case BrowserState::Taken:
        return AfxLoadString(IDS_BROWSER_TAKEN);
    case BrowserState::Refused:
        return AfxLoadString(IDS_BROWSER_REFUSED);
    case BrowserState::NotEnabled:
        break;
    }
    return AfxLoadString(IDS_BROWSER_NOT_ENABLED);
}

} // namespace

std::string DescribeBrowsers(const std::vector<BrowserReport>& reports)
{
    if (reports.empty())
        return AfxLoadString(IDS_NO_BROWSER);
    std::string text;
    for (const BrowserReport& report : reports)
    {
        text += (text.empty() ? "" : "\n") + report.name;
        if (report.name != report.place)
            text += ", " + report.place;
        text += "\n    " + DescribeState(report);
        if (report.refusesButton)
            text += "\n    " + AfxLoadString(IDS_BROWSER_NO_BUTTON);
    }
    return text;
}

std::string EmptyListHint(const std::vector<BrowserReport>& reports)
{
    const auto has = [&reports](BrowserState state) {
        return std::ranges::find(reports, state, &BrowserReport::state) != reports.end();
    };
    if (has(BrowserState::Open))
        return AfxLoadString(IDS_HINT_NO_PAGE);
    if (has(BrowserState::AsksUser))
        return AfxLoadString(IDS_HINT_ASKS);
    return AfxLoadString(has(BrowserState::Taken) ? IDS_HINT_TAKEN : IDS_HINT_START);
}

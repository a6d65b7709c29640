#include "platform/browser/devtools/State_p.h"

#include "platform/browser/devtools/Endpoints_p.h"
#include "platform/browser/devtools/Policies_p.h"
#include "platform/browser/devtools/PortQuery_p.h"
#include "platform/browser/toolbar/ExtensionFiles_p.h"
#include "platform/browser/toolbar/OpenBrowser_p.h"

namespace browsing::devtools
{
namespace
{

BrowserState StateWithoutAnswer(const Place& place)
{
    if (!IsAddress(place.text) && HasPortFile(place.text))
        return BrowserState::Stale;
    return IsDebuggingForbidden(place.name) ? BrowserState::Refused : BrowserState::NotEnabled;
}

bool RefusesButton(const Place& place)
{
    return place.text == toolbar::BrowserFolder() && toolbar::HasFiles() && toolbar::LoadIntoBrowser() == E_FAIL;
}

} // namespace

void Inquire(const Place& place, BrowserReport& report)
{
    Endpoint endpoint;
    if (FAILED(Resolve(place, endpoint)))
    {
        report.state = StateWithoutAnswer(place);
        return;
    }
    report.state = endpoint.asksUser ? BrowserState::AsksUser : BrowserState::Open;
    if (!endpoint.asksUser)
    {
        report.pages = CountPages(endpoint.authority);
        report.refusesButton = RefusesButton(place);
    }
}

} // namespace browsing::devtools

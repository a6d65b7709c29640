#include "platform/browser/devtools/Browser_p.h"

#include "platform/browser/Scripts_p.h"
#include "platform/browser/devtools/Cookies_p.h"
#include "platform/browser/devtools/Endpoints_p.h"
#include "platform/browser/devtools/Resources_p.h"
#include "platform/browser/devtools/TabStrip_p.h"
#include "platform/browser/devtools/World_p.h"

#include <algorithm>
#include <utility>

namespace browsing::devtools
{
namespace
{

using std::chrono::seconds;

constexpr seconds kHandshakeLimit(5);
constexpr seconds kConsentLimit(60); // the handshake lasts until the user has answered the browser's question
constexpr seconds kConsentPause(30);
constexpr seconds kListLimit(10);

} // namespace

Browser::Browser(Place place, std::shared_ptr<IoThread> io) : browsing::Browser(std::move(place)), m_io(std::move(io))
{}

Command Browser::CookieRequest() const
{
    return AskForCookies();
}

std::vector<Cookie> Browser::CookiesOf(const QJsonObject& reply) const
{
    return devtools::CookiesOf(reply);
}

HRESULT Browser::Connect()
{
    m_pages.clear();
    Endpoint endpoint;
    const HRESULT resolved = Resolve(GetPlace(), endpoint);
    if (FAILED(resolved))
        return resolved;
    const Clock::time_point now = Clock::now();
    if (endpoint.asksUser && now < m_askUserAfter)
        return RPC_E_DISCONNECTED;
    m_connection = std::make_shared<Connection>(m_io);
    SetConnection(m_connection, endpoint.socketUrl);
    const HRESULT result =
        m_connection->Open(endpoint.socketUrl, now + (endpoint.asksUser ? kConsentLimit : kHandshakeLimit));
    if (FAILED(result))
        m_askUserAfter = Clock::now() + kConsentPause;
    return result;
}

HRESULT Browser::LookAtPages(std::vector<SeenPage>& pages)
{
    std::vector<Attached> listed;
    const HRESULT result = ListPages(*m_connection, Clock::now() + kListLimit, listed);
    if (FAILED(result))
        return result;
    Forget(listed);
    for (const Attached& page : listed)
        AskForLook(page);
    for (const Attached& page : listed)
        pages.push_back(TakeLook(page));
    return S_OK;
}

void Browser::Forget(const std::vector<Attached>& pages)
{
    std::erase_if(m_pages, [&](const auto& known) {
        return std::ranges::find(pages, known.first, &Attached::session) == pages.end();
    });
}

void Browser::AskForLook(const Attached& page)
{
    m_pages[page.session].page.Ask(*m_connection, MakeWorld(page.session, page.target), LookIntoWorld(page.session));
}

SeenPage Browser::TakeLook(const Attached& page)
{
    SeenPage seen;
    QJsonValue value;
    seen.result = TakeValue(m_pages[page.session].page.Answer(), value);
    if (seen.result == E_FAIL)
    {
        // Most likely the page went to its next document between the two requests.
        AskForLook(page);
        seen.result = TakeValue(m_pages[page.session].page.Answer(), value);
    }
    const QJsonObject look = value.toObject();
    ReadLook(look, seen);
    seen.world = std::make_shared<World>(m_connection, page.session, look.value("context").toInt());
    return seen;
}

void Browser::ReadLoaded(std::vector<LoadedResource>& resources)
{
    for (auto& [session, attached] : m_pages)
    {
        if (!std::exchange(attached.isEnabled, true))
            m_connection->Send({"Page.enable", {}, session});
        attached.page.Ask(*m_connection, {"Page.getResourceTree", {}, session});
    }
    for (auto& [session, attached] : m_pages)
    {
        const Reply reply = attached.page.Answer();
        if (SUCCEEDED(reply.result))
            AddResources(m_connection, session, reply.value.value("frameTree").toObject(), resources);
    }
}

} // namespace browsing::devtools

#include "platform/browser/devtools/Browser_p.h"

#include "platform/browser/Scripts_p.h"
#include "platform/browser/devtools/TabStrip_p.h"

#include <algorithm>
#include <utility>

namespace devtools
{
namespace
{

using std::chrono::seconds;

constexpr seconds kHandshakeLimit(5);
constexpr seconds kConsentLimit(60); // the handshake lasts until the user has answered the browser's question
constexpr seconds kConsentPause(30);
constexpr seconds kListLimit(10);

// The context of our world and what stands in it, in one go. The main frame of a page has the number of its target.
Command MakeWorld(const Attached& page)
{
    return {"Page.createIsolatedWorld", {{"frameId", page.target}, {"worldName", kWorldName}}, page.session};
}

NextCommand LookIntoWorld(const QString& session)
{
    return [session](const QJsonObject& world) {
        const int context = world.value("executionContextId").toInt();
        return Evaluate(LookScript(context), context, session);
    };
}

} // namespace

Browser::Browser(Place place, std::shared_ptr<IoThread> io) : m_place(std::move(place)), m_io(std::move(io))
{}

std::shared_ptr<Connection> Browser::CurrentConnection() const
{
    const std::lock_guard lock(m_connectionMutex);
    return m_connection;
}

void Browser::SetConnection(std::shared_ptr<Connection> connection, const std::string& url)
{
    const std::lock_guard lock(m_connectionMutex);
    m_connection.swap(connection);
    m_socketUrl = url;
}

std::string Browser::SocketUrl() const
{
    const std::lock_guard lock(m_connectionMutex);
    return m_socketUrl;
}

HRESULT Browser::Reach()
{
    const std::lock_guard lock(m_lookMutex);
    const auto connection = CurrentConnection();
    return connection && connection->IsOpen() ? S_OK : Connect();
}

HRESULT Browser::Connect()
{
    m_pages.clear();
    Endpoint endpoint;
    const HRESULT resolved = Resolve(m_place, endpoint);
    if (FAILED(resolved))
        return resolved;
    const Clock::time_point now = Clock::now();
    if (endpoint.asksUser && now < m_askUserAfter)
        return RPC_E_DISCONNECTED;
    const auto connection = std::make_shared<Connection>(m_io);
    SetConnection(connection, endpoint.socketUrl); // at once, so that Close reaches it
    const HRESULT result =
        connection->Open(endpoint.socketUrl, now + (endpoint.asksUser ? kConsentLimit : kHandshakeLimit));
    if (FAILED(result))
        m_askUserAfter = Clock::now() + kConsentPause;
    return result;
}

void Browser::Close()
{
    if (const auto connection = CurrentConnection())
        connection->Close();
}

HRESULT Browser::Look(std::vector<SeenPage>& pages)
{
    const HRESULT reached = Reach();
    if (FAILED(reached))
        return reached;
    const std::lock_guard lock(m_lookMutex);
    const auto connection = CurrentConnection();
    std::vector<Attached> listed;
    const HRESULT result = ListPages(*connection, Clock::now() + kListLimit, listed);
    if (FAILED(result))
        return result;
    Forget(listed);
    for (const Attached& page : listed)
        AskForLook(*connection, page);
    for (const Attached& page : listed)
        pages.push_back(TakeLook(connection, page));
    const bool aborted = std::ranges::find(pages, E_ABORT, &SeenPage::result) != pages.end();
    return aborted ? E_ABORT : connection->IsOpen() ? S_OK : RPC_E_DISCONNECTED;
}

void Browser::Forget(const std::vector<Attached>& pages)
{
    std::erase_if(m_pages, [&](const auto& known) {
        return std::ranges::find(pages, known.first, &Attached::session) == pages.end();
    });
}

void Browser::AskForLook(Connection& connection, const Attached& page)
{
    m_pages[page.session].Ask(connection, MakeWorld(page), LookIntoWorld(page.session));
}

SeenPage Browser::TakeLook(const std::shared_ptr<Connection>& connection, const Attached& page)
{
    SeenPage seen{E_FAIL, connection, page.session, 0, {}, {}, false};
    QJsonValue value;
    seen.result = TakeValue(m_pages[page.session].Answer(), value);
    if (seen.result == E_FAIL)
    {
        // Most likely the page went to its next document between the two requests.
        AskForLook(*connection, page);
        seen.result = TakeValue(m_pages[page.session].Answer(), value);
    }
    const QJsonObject look = value.toObject();
    seen.context = look.value("context").toInt();
    seen.url = look.value("url").toString();
    seen.title = look.value("title").toString();
    seen.isHtml = look.value("html").toBool();
    return seen;
}

void Browser::ReadResources(std::vector<PageResources>& resources)
{
    const std::lock_guard lock(m_lookMutex);
    const auto connection = CurrentConnection();
    if (!connection || !connection->IsOpen())
        return;
    for (auto& [session, page] : m_pages)
    {
        if (!std::exchange(page.isEnabled, true))
            connection->Send({"Page.enable", {}, session});
        page.Ask(*connection, {"Page.getResourceTree", {}, session});
    }
    for (auto& [session, page] : m_pages)
    {
        const Reply reply = page.Answer();
        if (SUCCEEDED(reply.result))
            resources.push_back({connection, session, reply.value.value("frameTree").toObject()});
    }
}

} // namespace devtools

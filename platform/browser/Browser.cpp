#include "platform/browser/Browser_p.h"

#include <algorithm>
#include <utility>

namespace browsing
{

Browser::Browser(Place place) : m_place(std::move(place))
{}

std::shared_ptr<Connection> Browser::CurrentConnection() const
{
    const std::lock_guard lock(m_connectionMutex);
    return m_connection;
}

std::shared_ptr<Connection> Browser::OpenConnection() const
{
    auto connection = CurrentConnection();
    return connection && connection->IsOpen() ? connection : nullptr;
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
    return ReachLocked();
}

HRESULT Browser::ReachLocked()
{
    return OpenConnection() ? S_OK : Connect();
}

void Browser::Close()
{
    if (const auto connection = CurrentConnection())
        connection->Close();
}

HRESULT Browser::Look(std::vector<SeenPage>& pages)
{
    const std::lock_guard lock(m_lookMutex);
    HRESULT result = ReachLocked();
    if (FAILED(result))
        return result;
    const auto connection = CurrentConnection();
    result = LookAtPages(pages);
    if (FAILED(result))
        return result;
    const bool aborted = std::ranges::find(pages, E_ABORT, &SeenPage::result) != pages.end();
    return aborted ? E_ABORT : connection->IsOpen() ? S_OK : RPC_E_DISCONNECTED;
}

void Browser::ReadResources(std::vector<LoadedResource>& resources)
{
    const std::lock_guard lock(m_lookMutex);
    if (OpenConnection())
        ReadLoaded(resources);
}

Command Browser::CookieRequest() const
{
    return {};
}

std::vector<Cookie> Browser::CookiesOf(const QJsonObject&) const
{
    return {};
}

void Browser::ReadLoaded(std::vector<LoadedResource>&)
{}

} // namespace browsing

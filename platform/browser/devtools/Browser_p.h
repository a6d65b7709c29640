// One browser: reached when it is first needed, and reached again after it has gone.
#pragma once

#include "platform/browser/Page_p.h"
#include "platform/browser/devtools/Endpoints_p.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace devtools
{

// A page as one look found it.
struct SeenPage
{
    HRESULT result = RPC_E_TIMEOUT; // a failure: the page has no document for us, and the rest is empty
    std::shared_ptr<Connection> browser;
    QString session;
    int context = 0; // of our world in the document
    QString url;
    QString title;
    bool isHtml = false;
};

// The frames of one page with what each has loaded, as Page.getResourceTree tells it.
struct PageResources
{
    std::shared_ptr<Connection> browser;
    QString session;
    QJsonObject frameTree;
};

class Browser
{
public:
    Browser(Place place, std::shared_ptr<IoThread> io);

    const Place& GetPlace() const
    {
        return m_place;
    }
    // Connects unless that is done. RPC_E_DISCONNECTED if no browser is there. May wait for the user's consent.
    HRESULT Reach();
    // The connection's address, empty without one.
    std::string SocketUrl() const;
    // All pages in the order of their tabs. Reaches the browser again if it was closed.
    HRESULT Look(std::vector<SeenPage>& pages);
    // Of the pages that earlier looks have attached to. Connects to nothing.
    void ReadResources(std::vector<PageResources>& resources);
    void Close();

private:
    HRESULT Connect();
    std::shared_ptr<Connection> CurrentConnection() const;
    void SetConnection(std::shared_ptr<Connection> connection, const std::string& url);
    void Forget(const std::vector<Attached>& pages);
    void AskForLook(Connection& connection, const Attached& attached);
    SeenPage TakeLook(const std::shared_ptr<Connection>& connection, const Attached& attached);

    const Place m_place;
    const std::shared_ptr<IoThread> m_io;

    std::mutex m_lookMutex;           // held for a whole look: two threads take turns
    std::map<QString, Page> m_pages;  // by session
    Clock::time_point m_askUserAfter; // a user who has refused is not asked again at once

    mutable std::mutex m_connectionMutex;
    std::shared_ptr<Connection> m_connection;
    std::string m_socketUrl;
};

} // namespace devtools

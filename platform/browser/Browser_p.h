// One browser, whatever protocol it speaks: reached when it is first needed, and reached again after it has gone.
#pragma once

#include "platform/browser/Connection_p.h"
#include "platform/browser/Places_p.h"
#include "platform/internet/Cookies.h"

#include <QByteArray>
#include <QJsonValue>

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace browsing
{

// Where scripts are evaluated in one document, out of reach of the page's own.
class World
{
public:
    virtual ~World() = default;
    // The value of an expression that gives JSON. E_FAIL if it throws, or the document has gone.
    virtual HRESULT Evaluate(const QString& script, Deadline deadline, QJsonValue& value) = 0;
};

// A page as one look found it.
struct SeenPage
{
    HRESULT result = RPC_E_TIMEOUT; // a failure: the page has no document for us, and the rest is empty
    std::shared_ptr<World> world;
    QString url;
    QString title;
    bool isHtml = false;
};

// Waits for the bytes of the server, on the thread that calls it, once; empty if they are not to be had.
using AskedContent = std::function<QByteArray()>;

// Something that a document has loaded and its browser can hand out.
struct LoadedResource
{
    QString url;
    QString loader; // changes with every document
    qint64 size = 0;
    std::function<AskedContent()> ask; // does not wait
};

class Browser
{
public:
    explicit Browser(Place place);
    virtual ~Browser() = default;
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;

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
    // Of the pages that earlier looks have found. Connects to nothing.
    void ReadResources(std::vector<LoadedResource>& resources);
    void Close();

    // Null unless the browser is connected. Any thread, beside a look too.
    std::shared_ptr<Connection> OpenConnection() const;
    // The request for all cookies of the user's own profile, without a method if the browser hands out none, and what
    // its reply holds. Any thread.
    virtual Command CookieRequest() const;
    virtual std::vector<Cookie> CookiesOf(const QJsonObject& reply) const;

protected:
    // These are called by one thread at a time, all but Connect with the connection open. Connect hands its connection
    // to SetConnection before it waits, so that Close reaches it.
    virtual HRESULT Connect() = 0;
    virtual HRESULT LookAtPages(std::vector<SeenPage>& pages) = 0;
    virtual void ReadLoaded(std::vector<LoadedResource>& resources);
    void SetConnection(std::shared_ptr<Connection> connection, const std::string& url);

private:
    HRESULT ReachLocked();
    std::shared_ptr<Connection> CurrentConnection() const;

    const Place m_place;
    std::mutex m_lookMutex; // held for a whole look: two threads take turns

    mutable std::mutex m_connectionMutex;
    std::shared_ptr<Connection> m_connection;
    std::string m_socketUrl;
};

} // namespace browsing

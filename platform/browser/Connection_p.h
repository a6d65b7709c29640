// One browser at the other end of one WebSocket, which speaks the DevTools protocol: JSON messages, of which a request
// and its reply carry one id, and a request to a page carries the session of that page. Any thread may call.
#pragma once

#include "platform/browser/PendingReply_p.h"

#include <QJsonObject>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

class QWebSocket;

namespace devtools
{

class IoThread;

// A request: {"id": 1, "method": "Page.enable", "params": {}, "sessionId": "…"}. An empty session is the browser.
struct Command
{
    QString method;
    QJsonObject params;
    QString session;
};

// What is to be asked next, made from the reply before it on the I/O thread, so that a chain of requests to one page
// does not wait for its turn on the calling thread.
using NextCommand = std::function<Command(const QJsonObject& value)>;

// A page that the browser has given us a session of.
struct Attached
{
    QString session;
    QString target;
};

class Connection
{
public:
    explicit Connection(std::shared_ptr<IoThread> io);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Connects, once, to "ws://address:port/path".
    HRESULT Open(const std::string& url, Deadline deadline);
    bool IsOpen() const;
    // Every call that waits fails with RPC_E_DISCONNECTED, as when the browser goes away.
    void Close();

    // Many requests may be under way. The result of a reply is E_FAIL if the browser refused the request or the page
    // has crashed or closed.
    std::shared_ptr<PendingReply> Send(const Command& command, NextCommand next = nullptr);
    Reply Call(const Command& command, Deadline deadline);

    // The sessions of this moment.
    std::vector<Attached> Sessions() const;

private:
    struct Request
    {
        std::shared_ptr<PendingReply> pending;
        QString session;
        NextCommand next;
    };

    void MakeSocket(const std::string& url);
    void OnOpen();
    void Transmit(const QByteArray& message);
    QByteArray Enter(const Command& command, Request request);
    void Receive(const QString& message);
    void OnReply(int id, QJsonValue result);
    void OnEvent(const QString& method, const QJsonObject& message);
    void OnAttached(const QJsonObject& params);
    void OnDetached(const QString& session);
    void OnCrashed(const QString& session);
    void FailRequests(const QString& session);
    void Lose();

    const std::shared_ptr<IoThread> m_io;
    std::unique_ptr<QWebSocket> m_socket; // of the I/O thread alone
    std::shared_ptr<PendingReply> m_opening = std::make_shared<PendingReply>();

    mutable std::mutex m_mutex; // of all below
    bool m_open = false;
    int m_lastId = 0;
    std::map<int, Request> m_requests;
    std::map<QString, QString> m_sessions; // the target by session
    std::set<QString> m_crashed;
};

} // namespace devtools

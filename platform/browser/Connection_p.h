// One browser at the other end of one WebSocket, which speaks JSON messages: a request and its reply carry one id, and
// what carries none is an event. Any thread may call.
#pragma once

#include "platform/browser/PendingReply_p.h"

#include <QJsonObject>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace browsing
{

class IoThread;
class Socket;

// A request: {"id": 1, "method": "Page.enable", "params": {}, "sessionId": "…"}. An empty session is left out.
struct Command
{
    QString method;
    QJsonObject params;
    QString session;
};

// What is to be asked next, made from the reply before it on the I/O thread, so that a chain of requests to one page
// does not wait for its turn on the calling thread.
using NextCommand = std::function<Command(const QJsonObject& value)>;

class Connection
{
public:
    explicit Connection(std::shared_ptr<IoThread> io);
    virtual ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Connects, once, to "ws://address:port/path".
    HRESULT Open(const std::string& url, Deadline deadline);
    bool IsOpen() const;
    // Every call that waits fails with RPC_E_DISCONNECTED, as when the browser goes away.
    virtual void Close();

    // Many requests may be under way. The result of a reply is E_FAIL if the browser refused the request or its session
    // has ended.
    std::shared_ptr<PendingReply> Send(const Command& command, NextCommand next = nullptr);
    Reply Call(const Command& command, Deadline deadline);

protected:
    // Called on the I/O thread, OnLost on any.
    virtual void OnEvent(const QString& method, const QJsonObject& message);
    virtual void OnLost();
    // Whether requests to a session can be answered. Called with the requests locked.
    virtual bool IsAlive(const QString& session) const;
    void FailRequests(const QString& session);

private:
    struct Request
    {
        std::shared_ptr<PendingReply> pending;
        QString session;
        NextCommand next;
    };

    void MakeSocket(const std::string& url);
    void OnOpen();
    void OnMessage(const QString& message);
    void Transmit(const QByteArray& message);
    QByteArray Enter(const Command& command, Request request);
    void Receive(const QString& message);
    void OnReply(int id, QJsonValue result);
    void Lose();

    const std::shared_ptr<IoThread> m_io;
    std::unique_ptr<Socket> m_socket; // of the I/O thread alone
    std::shared_ptr<PendingReply> m_opening = std::make_shared<PendingReply>();

    mutable std::mutex m_mutex; // of all below
    bool m_open = false;
    int m_lastId = 0;
    std::map<int, Request> m_requests;
};

} // namespace browsing

// A WebSocket to a browser, of the I/O thread alone.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <string>

namespace browsing
{

// Called on the I/O thread; the last one also in place of the first, and more than once.
struct SocketEvents
{
    std::function<void()> opened;
    std::function<void(const QString& message)> received;
    std::function<void()> lost;
};

class Socket
{
public:
    explicit Socket(SocketEvents events);
    ~Socket();
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    // Connects, once, to "ws://address:port/path".
    void Open(const std::string& url);
    void Send(const QByteArray& message);

private:
    struct Body;
    const std::unique_ptr<Body> m_body;
};

} // namespace browsing

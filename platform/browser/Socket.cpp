#include "platform/browser/Socket_p.h"

#include <QNetworkProxy>
#include <QUrl>
#include <QWebSocket>

#include <utility>

namespace browsing
{
namespace
{

// A resource travels as base64 in one message; see the limit of its size in devtools/Resources.cpp. A message above
// this ends the connection.
constexpr quint64 kLargestMessage = 512U << 20;

} // namespace

struct Socket::Body
{
    SocketEvents events;
    QWebSocket socket{QString()}; // gone before the events
};

// No Origin header: with one the browser takes us for a page and refuses. No proxy: the address is this machine's.
Socket::Socket(SocketEvents events) : m_body(std::make_unique<Body>())
{
    m_body->events = std::move(events);
    QWebSocket* const socket = &m_body->socket;
    socket->setProxy(QNetworkProxy::NoProxy);
    socket->setMaxAllowedIncomingFrameSize(kLargestMessage);
    socket->setMaxAllowedIncomingMessageSize(kLargestMessage);
    QObject::connect(socket, &QWebSocket::connected, socket, m_body->events.opened);
    QObject::connect(socket, &QWebSocket::disconnected, socket, m_body->events.lost);
    QObject::connect(socket, qOverload<QAbstractSocket::SocketError>(&QWebSocket::error), socket, m_body->events.lost);
    QObject::connect(socket, &QWebSocket::textMessageReceived, socket, m_body->events.received);
}

Socket::~Socket() = default;

void Socket::Open(const std::string& url)
{
    m_body->socket.open(QUrl(QString::fromStdString(url)));
}

void Socket::Send(const QByteArray& message)
{
    m_body->socket.sendTextMessage(QString::fromUtf8(message));
}

} // namespace browsing

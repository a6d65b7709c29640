#include "platform/browser/Connection_p.h"

#include "platform/browser/IoThread_p.h"
#include "platform/browser/Socket_p.h"

#include <QJsonDocument>

#include <new>
#include <utility>

namespace browsing
{
namespace
{

QByteArray Encode(int id, const Command& command)
{
    QJsonObject message{{"id", id}, {"method", command.method}, {"params", command.params}};
    if (!command.session.isEmpty())
        message.insert("sessionId", command.session);
    return QJsonDocument(message).toJson(QJsonDocument::Compact);
}

} // namespace

Connection::Connection(std::shared_ptr<IoThread> io) : m_io(std::move(io))
{}

Connection::~Connection()
{
    Connection::Close();
}

HRESULT Connection::Open(const std::string& url, Deadline deadline)
{
    if (!m_io->Call([&] { MakeSocket(url); }))
        return RPC_E_DISCONNECTED;
    const HRESULT result = m_opening->Take(deadline).result;
    if (FAILED(result))
        Close();
    return result;
}

bool Connection::IsOpen() const
{
    const std::lock_guard lock(m_mutex);
    return m_open;
}

void Connection::Close()
{
    m_io->Call([this] { m_socket.reset(); });
    Lose();
}

std::shared_ptr<PendingReply> Connection::Send(const Command& command, NextCommand next)
{
    const auto pending = std::make_shared<PendingReply>();
    const QByteArray message = Enter(command, {pending, command.session, std::move(next)});
    if (!message.isEmpty() && !m_io->Post([this, message] { Transmit(message); }))
        Lose();
    return pending;
}

Reply Connection::Call(const Command& command, Deadline deadline)
{
    return Send(command)->Take(deadline);
}

void Connection::MakeSocket(const std::string& url)
{
    const auto received = [this](const QString& message) { OnMessage(message); };
    m_socket = std::make_unique<Socket>(SocketEvents{[this] { OnOpen(); }, received, [this] { Lose(); }});
    m_socket->Open(url);
}

void Connection::OnMessage(const QString& message)
{
    try
    {
        Receive(message);
    }
    catch (const std::bad_alloc&)
    {
        Lose();
    }
}

void Connection::OnOpen()
{
    {
        const std::lock_guard lock(m_mutex);
        m_open = true;
    }
    m_opening->Finish({S_OK, {}});
}

void Connection::Transmit(const QByteArray& message)
{
    if (m_socket)
        m_socket->Send(message);
}

// Notes a request and gives its message; empty if it has failed already.
QByteArray Connection::Enter(const Command& command, Request request)
{
    const std::lock_guard lock(m_mutex);
    if (!m_open || !IsAlive(command.session))
    {
        request.pending->Finish({m_open ? E_FAIL : RPC_E_DISCONNECTED, {}});
        return {};
    }
    const int id = ++m_lastId;
    m_requests.emplace(id, std::move(request));
    return Encode(id, command);
}

// What is no JSON is passed over: the call that it may have answered ends at its limit, the others go on.
void Connection::Receive(const QString& text)
{
    QJsonObject message = QJsonDocument::fromJson(text.toUtf8()).object();
    if (message.contains("id"))
        OnReply(message.value("id").toInt(), message.take("result"));
    else
        OnEvent(message.value("method").toString(), message);
}

// The waiting thread gets the only reference to the value: who frees it is then no race between two threads.
void Connection::OnReply(int id, QJsonValue result)
{
    Request request;
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_requests.find(id);
        if (found == m_requests.end())
            return;
        request = std::move(found->second);
        m_requests.erase(found);
    }
    if (!result.isObject())
        return request.pending->Finish({E_FAIL, {}});
    QJsonObject value = std::exchange(result, {}).toObject();
    if (!request.next)
        return request.pending->Finish({S_OK, std::move(value)});
    const Command command = request.next(value);
    const QByteArray next = Enter(command, {request.pending, command.session, nullptr});
    if (!next.isEmpty())
        Transmit(next);
}

void Connection::OnEvent(const QString&, const QJsonObject&)
{}

void Connection::OnLost()
{}

bool Connection::IsAlive(const QString&) const
{
    return true;
}

void Connection::FailRequests(const QString& session)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_requests, [&](const auto& entry) {
        if (entry.second.session != session)
            return false;
        entry.second.pending->Finish({E_FAIL, {}});
        return true;
    });
}

void Connection::Lose()
{
    m_opening->Finish({RPC_E_DISCONNECTED, {}});
    OnLost();
    const std::lock_guard lock(m_mutex);
    m_open = false;
    for (const auto& [id, request] : std::exchange(m_requests, {}))
        request.pending->Finish({RPC_E_DISCONNECTED, {}});
}

} // namespace browsing

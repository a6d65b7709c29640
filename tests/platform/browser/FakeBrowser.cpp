#include "tests/platform/browser/FakeBrowser.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTcpServer>
#include <QTcpSocket>
#include <QWebSocket>
#include <QWebSocketServer>

namespace
{

constexpr const char* kPath = "/devtools/browser/fake";

QString TextOf(const QJsonObject& message)
{
    return QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

QString AttachedEvent(const QString& target)
{
    const QJsonObject info{{"targetId", target}, {"type", "page"}};
    return TextOf({{"method", "Target.attachedToTarget"},
                   {"params", QJsonObject{{"sessionId", "s-" + target}, {"targetInfo", info}}}});
}

} // namespace

struct FakeBrowser::Server
{
    QTcpServer tcp;
    QWebSocketServer sockets{"fake", QWebSocketServer::NonSecureMode};
    std::vector<std::unique_ptr<QWebSocket>> clients;
    QTcpSocket* line = nullptr; // of the last client
};

FakeBrowser::FakeBrowser(std::vector<std::string> titles, Behaviour behaviour, int versionStatus)
    : m_titles(std::move(titles)), m_behaviour(std::move(behaviour)), m_versionStatus(versionStatus)
{
    m_thread.Call([this] {
        m_server = std::make_unique<Server>();
        QObject::connect(&m_server->tcp, &QTcpServer::newConnection, &m_server->tcp, [this] { OnHead(); });
        QObject::connect(&m_server->sockets, &QWebSocketServer::newConnection, &m_server->tcp,
                         [this] { OnConnection(); });
        m_server->tcp.listen(QHostAddress::LocalHost);
        m_port = m_server->tcp.serverPort();
    });
}

FakeBrowser::~FakeBrowser()
{
    Die();
}

void FakeBrowser::Die()
{
    m_thread.Call([this] { m_server.reset(); });
}

void FakeBrowser::BreakOff()
{
    const QByteArray head("\x81\x7F\0\0\0\0\x0C\0\0\0", 10);
    m_server->line->write(head + QByteArray(1 << 20, '['));
    m_server->line->disconnectFromHost();
}

std::string FakeBrowser::Endpoint() const
{
    return "ws://127.0.0.1:" + std::to_string(m_port) + kPath;
}

std::string FakeBrowser::BidiEndpoint() const
{
    return "ws://127.0.0.1:" + std::to_string(m_port) + "/session";
}

std::vector<std::string> FakeBrowser::Heads() const
{
    const std::lock_guard lock(m_mutex);
    return m_heads;
}

QString FakeBrowser::Reply(const QJsonObject& request, const QJsonObject& result)
{
    return TextOf({{"id", request.value("id")}, {"sessionId", request.value("sessionId")}, {"result", result}});
}

void FakeBrowser::OnHead()
{
    QTcpSocket* const socket = m_server->tcp.nextPendingConnection();
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
        const QByteArray head = socket->peek(4096);
        if (!head.contains("\r\n\r\n"))
            return;
        {
            const std::lock_guard lock(m_mutex);
            m_heads.push_back(head.toStdString());
        }
        socket->disconnect();
        m_server->line = socket;
        if (!head.startsWith("GET /json/version"))
            return m_server->sockets.handleConnection(socket);
        const QByteArray body = TextOf({{"webSocketDebuggerUrl", QString::fromStdString(Endpoint())}}).toUtf8();
        socket->write("HTTP/1.1 " + QByteArray::number(m_versionStatus) + " -\r\nContent-Length: " +
                      QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
        socket->disconnectFromHost();
    });
}

void FakeBrowser::OnConnection()
{
    m_server->clients.emplace_back(m_server->sockets.nextPendingConnection());
    QWebSocket* const client = m_server->clients.back().get();
    QObject::connect(client, &QWebSocket::textMessageReceived, client, [this, client](const QString& text) {
        const Send send = [client](const QString& reply) { client->sendTextMessage(reply); };
        const QJsonObject request = QJsonDocument::fromJson(text.toUtf8()).object();
        if (!m_behaviour || !m_behaviour(request, send))
            Answer(request, send);
    });
}

void FakeBrowser::Answer(const QJsonObject& request, const Send& send) const
{
    const QString method = request.value("method").toString();
    const QString session = request.value("sessionId").toString();
    QJsonObject result;
    if (method == "Target.getTargets")
        result = Targets();
    else if (method == "Target.attachToTarget")
    {
        const QString target = request.value("params").toObject().value("targetId").toString();
        send(AttachedEvent(target));
        result = {{"sessionId", "s-" + target}};
    }
    else if (method == "Browser.getWindowForTarget")
        result = {{"windowId", 1}};
    else if (method == "Page.createIsolatedWorld")
        result = {{"executionContextId", 7}};
    else if (method == "Runtime.evaluate")
        result = {{"result", QJsonObject{{"value", Look(session.mid(6).toUInt())}}}};
    else if (method == "browsingContext.getTree")
        result = Contexts();
    else if (method == "script.evaluate")
        result = Evaluated(request.value("params").toObject().value("target").toObject());
    send(Reply(request, result));
}

QJsonObject FakeBrowser::Look(uint page) const
{
    const QString title = QString::fromStdString(m_titles.at(page));
    return {{"url", "http://x/" + title}, {"title", title}, {"html", true}, {"context", 7}};
}

QJsonObject FakeBrowser::Contexts() const
{
    QJsonArray contexts;
    for (int i = 0; i < static_cast<int>(m_titles.size()); ++i)
        contexts.append(QJsonObject{{"context", "page" + QString::number(i)}});
    return {{"contexts", contexts}};
}

QJsonObject FakeBrowser::Evaluated(const QJsonObject& target) const
{
    const QString context = target.value("context").toString();
    const QJsonObject value{{"type", "string"}, {"value", TextOf(Look(context.mid(4).toUInt()))}};
    return {{"type", "success"}, {"realm", "r-" + context}, {"result", value}};
}

// The list of targets is not in the order of the tab strip; a tab is known from its page by title and address.
QJsonObject FakeBrowser::Targets() const
{
    QJsonArray targets;
    for (int i = 0; i < static_cast<int>(m_titles.size()); ++i)
    {
        QJsonObject target{{"targetId", "page" + QString::number(i)},
                           {"type", "page"},
                           {"title", QString::fromStdString(m_titles[static_cast<std::size_t>(i)])},
                           {"url", "http://x/"}};
        targets.prepend(target);
        target["targetId"] = "tab" + QString::number(i);
        target["type"] = "tab";
        target["embedderData"] = QJsonObject{{"tabStripIndex", i}};
        targets.append(target);
    }
    for (const char* hidden : {"iframe", "service_worker", "browser_ui"})
        targets.prepend(QJsonObject{{"targetId", hidden}, {"type", hidden}});
    targets.prepend(QJsonObject{{"targetId", "tools"}, {"type", "page"}, {"url", "devtools://devtools/x.html"}});
    targets.prepend(QJsonObject{{"targetId", "early"}, {"type", "page"}, {"subtype", "prerender"}});
    return {{"targetInfos", targets}};
}

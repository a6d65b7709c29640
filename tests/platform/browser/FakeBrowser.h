// A server of both protocols with a few pages, which can misbehave.
#pragma once

#include "platform/browser/IoThread_p.h"

#include <QJsonObject>
#include <QString>

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

class FakeBrowser
{
public:
    // Sends one message to the client.
    using Send = std::function<void(const QString& text)>;
    // Called with each request on the server's thread; true if it has dealt with it.
    using Behaviour = std::function<bool(const QJsonObject& request, const Send& send)>;

    // A page for each title, which answer as they should but for what the behaviour takes over. `versionStatus` is the
    // answer to /json/version.
    explicit FakeBrowser(std::vector<std::string> titles, Behaviour behaviour = nullptr, int versionStatus = 200);
    ~FakeBrowser();

    int Port() const
    {
        return m_port;
    }
    std::string Endpoint() const;     // "ws://127.0.0.1:PORT/devtools/browser/fake"
    std::string BidiEndpoint() const; // "ws://127.0.0.1:PORT/session"
    // Closes all connections and listens no more.
    void Die();
    // Goes in the middle of a message of 200 MB. On the server's thread.
    void BreakOff();
    // Heads of all requests so far.
    std::vector<std::string> Heads() const;

    // Deals with a request as it should.
    void Answer(const QJsonObject& request, const Send& send) const;
    static QString Reply(const QJsonObject& request, const QJsonObject& result);

private:
    struct Server;

    void OnConnection();
    void OnHead();
    QJsonObject Targets() const;
    QJsonObject Contexts() const;
    QJsonObject Look(uint page) const;
    QJsonObject Evaluated(const QJsonObject& target) const;

    const std::vector<std::string> m_titles;
    const Behaviour m_behaviour;
    const int m_versionStatus;
    int m_port = 0;
    browsing::IoThread m_thread;
    std::unique_ptr<Server> m_server; // of the thread
    mutable std::mutex m_mutex;
    std::vector<std::string> m_heads;
};

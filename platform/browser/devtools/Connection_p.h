// A connection that knows the pages which the browser has given us a session of.
#pragma once

#include "platform/browser/Connection_p.h"

#include <map>
#include <mutex>
#include <set>
#include <vector>

namespace browsing::devtools
{

struct Attached
{
    QString session;
    QString target;
};

class Connection : public browsing::Connection
{
public:
    using browsing::Connection::Connection;
    ~Connection() override;

    // The sessions of this moment.
    std::vector<Attached> Sessions() const;

protected:
    void OnEvent(const QString& method, const QJsonObject& message) override;
    void OnLost() override;
    bool IsAlive(const QString& session) const override;

private:
    void OnAttached(const QJsonObject& params);
    void OnDetached(const QString& session);
    void OnCrashed(const QString& session);

    mutable std::mutex m_mutex;            // of all below; taken behind that of the requests
    std::map<QString, QString> m_sessions; // the target by session
    std::set<QString> m_crashed;
};

} // namespace browsing::devtools

#include "platform/browser/devtools/Connection_p.h"

namespace browsing::devtools
{

// The socket must be gone before what its events are told to.
Connection::~Connection()
{
    Connection::Close();
}

std::vector<Attached> Connection::Sessions() const
{
    const std::lock_guard lock(m_mutex);
    std::vector<Attached> sessions;
    for (const auto& [session, target] : m_sessions)
        sessions.push_back({session, target});
    return sessions;
}

bool Connection::IsAlive(const QString& session) const
{
    const std::lock_guard lock(m_mutex);
    return session.isEmpty() || (m_sessions.contains(session) && !m_crashed.contains(session));
}

void Connection::OnEvent(const QString& method, const QJsonObject& message)
{
    const QString session = message.value("sessionId").toString();
    const QJsonObject params = message.value("params").toObject();
    if (method == "Target.attachedToTarget")
        OnAttached(params);
    else if (method == "Target.detachedFromTarget")
        OnDetached(params.value("sessionId").toString());
    else if (method == "Inspector.targetCrashed")
        OnCrashed(session);
    else if (method == "Inspector.targetReloadedAfterCrash")
    {
        const std::lock_guard lock(m_mutex);
        m_crashed.erase(session);
    }
}

void Connection::OnAttached(const QJsonObject& params)
{
    const std::lock_guard lock(m_mutex);
    m_sessions[params.value("sessionId").toString()] =
        params.value("targetInfo").toObject().value("targetId").toString();
}

void Connection::OnDetached(const QString& session)
{
    {
        const std::lock_guard lock(m_mutex);
        m_sessions.erase(session);
        m_crashed.erase(session);
    }
    FailRequests(session);
}

// A crashed page answers nothing until it is loaded again.
void Connection::OnCrashed(const QString& session)
{
    {
        const std::lock_guard lock(m_mutex);
        m_crashed.insert(session);
    }
    FailRequests(session);
}

void Connection::OnLost()
{
    const std::lock_guard lock(m_mutex);
    m_sessions.clear();
    m_crashed.clear();
}

} // namespace browsing::devtools

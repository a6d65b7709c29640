#include "platform/browser/devtools/World_p.h"

#include "platform/browser/Scripts_p.h"

#include <utility>

namespace browsing::devtools
{
namespace
{

Command EvaluateIn(int context, const QString& script, const QString& session)
{
    return {"Runtime.evaluate",
            {{"expression", script}, {"contextId", context}, {"returnByValue", true}, {"silent", true}},
            session};
}

} // namespace

Command MakeWorld(const QString& session, const QString& target)
{
    return {"Page.createIsolatedWorld", {{"frameId", target}, {"worldName", "Vantroy"}}, session};
}

NextCommand LookIntoWorld(const QString& session)
{
    return [session](const QJsonObject& world) {
        const int context = world.value("executionContextId").toInt();
        const QString script = "Object.assign(" + LookScript() + ", {context: " + QString::number(context) + "})";
        return EvaluateIn(context, script, session);
    };
}

HRESULT TakeValue(const Reply& reply, QJsonValue& value)
{
    if (FAILED(reply.result))
        return reply.result;
    if (reply.value.contains("exceptionDetails"))
        return E_FAIL;
    value = reply.value.value("result").toObject().value("value");
    return S_OK;
}

World::World(std::shared_ptr<browsing::Connection> connection, QString session, int context)
    : m_connection(std::move(connection)), m_session(std::move(session)), m_context(context)
{}

HRESULT World::Evaluate(const QString& script, Deadline deadline, QJsonValue& value)
{
    return TakeValue(m_connection->Call(EvaluateIn(m_context, script, m_session), deadline), value);
}

} // namespace browsing::devtools

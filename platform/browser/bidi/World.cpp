// The answer to script.evaluate, of an expression that throws "type" is "exception":
//
//   {"type": "success", "realm": "11d6…", "result": {"type": "string", "value": "{\"url\":\"http://…\"}"}}
//
// Values of the protocol's own name the type of each part and are cut at a depth, so ours come as texts.
#include "platform/browser/bidi/World_p.h"

#include "platform/browser/Scripts_p.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <utility>

namespace browsing::bidi
{
namespace
{

Command EvaluateIn(const QJsonObject& target, const QString& script)
{
    return {"script.evaluate",
            {{"expression", "JSON.stringify(" + script + ")"}, {"target", target}, {"awaitPromise", false}},
            {}};
}

} // namespace

Command LookIntoPage(const QString& context)
{
    return EvaluateIn({{"context", context}, {"sandbox", "Vantroy"}}, LookScript());
}

HRESULT TakeValue(const Reply& reply, QJsonValue& value)
{
    if (FAILED(reply.result))
        return reply.result;
    if (reply.value.value("type") != "success")
        return E_FAIL;
    const QByteArray text = reply.value.value("result").toObject().value("value").toString().toUtf8();
    const QJsonDocument document = QJsonDocument::fromJson(text);
    value = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    return document.isNull() ? E_FAIL : S_OK;
}

QString RealmOf(const Reply& reply)
{
    return reply.value.value("realm").toString();
}

World::World(std::shared_ptr<Connection> connection, QString realm)
    : m_connection(std::move(connection)), m_realm(std::move(realm))
{}

HRESULT World::Evaluate(const QString& script, Deadline deadline, QJsonValue& value)
{
    return TakeValue(m_connection->Call(EvaluateIn({{"realm", m_realm}}, script), deadline), value);
}

} // namespace browsing::bidi

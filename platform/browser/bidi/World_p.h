// Evaluation in a sandbox of one document.
#pragma once

#include "platform/browser/Browser_p.h"

#include <memory>

namespace browsing::bidi
{

// The look into our sandbox of a page's document, which is made with it.
Command LookIntoPage(const QString& context);
// The value that a reply to a script of ours holds, and the realm that it was made in.
HRESULT TakeValue(const Reply& reply, QJsonValue& value);
QString RealmOf(const Reply& reply);

// A realm goes with its document.
class World : public browsing::World
{
public:
    World(std::shared_ptr<Connection> connection, QString realm);

    HRESULT Evaluate(const QString& script, Deadline deadline, QJsonValue& value) override;

private:
    const std::shared_ptr<Connection> m_connection;
    const QString m_realm;
};

} // namespace browsing::bidi

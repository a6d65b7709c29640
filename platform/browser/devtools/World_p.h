// Evaluation in an isolated world of one page.
#pragma once

#include "platform/browser/Browser_p.h"

#include <memory>

namespace browsing::devtools
{

// The context of our world in a page, and the look into it, in one go. The main frame of a page has the number of its
// target. The value of the look carries the number of the context, too.
Command MakeWorld(const QString& session, const QString& target);
NextCommand LookIntoWorld(const QString& session);
// The value that a reply to Runtime.evaluate holds.
HRESULT TakeValue(const Reply& reply, QJsonValue& value);

class World : public browsing::World
{
public:
    World(std::shared_ptr<browsing::Connection> connection, QString session, int context);

    HRESULT Evaluate(const QString& script, Deadline deadline, QJsonValue& value) override;

private:
    const std::shared_ptr<browsing::Connection> m_connection;
    const QString m_session;
    const int m_context;
};

} // namespace browsing::devtools

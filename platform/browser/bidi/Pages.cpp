// The answer to browsingContext.getTree, shortened:
//
//   {"contexts": [{"context": "2a73…", "url": "http://…", "clientWindow": "9e3a…", "parent": null, "children": null}]}
#include "platform/browser/bidi/Pages_p.h"

#include <QJsonArray>

namespace browsing::bidi
{

HRESULT ListPages(Connection& browser, Deadline deadline, std::vector<QString>& contexts)
{
    const Reply reply = browser.Call({"browsingContext.getTree", {{"maxDepth", 0}}, {}}, deadline);
    for (const QJsonValue& page : reply.value.value("contexts").toArray())
    {
        if (const QString context = page.toObject().value("context").toString(); !context.isEmpty())
            contexts.push_back(context);
    }
    return reply.result;
}

} // namespace browsing::bidi

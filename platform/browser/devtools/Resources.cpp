// Page.getResourceTree, shortened; frames of other sites are not in it:
//
//   {"frame": {"id": "0B05…", "loaderId": "E668…", "url": "…", "mimeType": "text/html"},
//    "childFrames": [{"frame": …}],
//    "resources": [{"url": "…", "type": "Image", "mimeType": "image/png", "contentSize": 30173, "failed": true}]}
//
// `contentSize` is 0 until a resource is loaded to its end, and Page.getResourceContent hands out what has come so far.
#include "platform/browser/devtools/Resources_p.h"

#include <QJsonArray>

namespace browsing::devtools
{
namespace
{

constexpr std::chrono::seconds kContentLimit(30);
// What is larger is fetched, as it travels as base64 in one message.
constexpr qint64 kLargestContent = 64 << 20;

bool IsWhole(const QJsonObject& resource)
{
    const qint64 size = resource.value("contentSize").toInteger();
    return size > 0 && size <= kLargestContent && !resource.value("failed").toBool() &&
           !resource.value("canceled").toBool();
}

// Content that comes as text is left out: it was decoded, and its bytes need not be those of the server.
QByteArray Take(PendingReply& pending, qint64 size)
{
    const Reply reply = pending.Take(Clock::now() + kContentLimit);
    if (FAILED(reply.result) || !reply.value.value("base64Encoded").toBool())
        return {};
    const QByteArray content = QByteArray::fromBase64(reply.value.value("content").toString().toLatin1());
    return content.size() == size ? content : QByteArray();
}

} // namespace

void AddResources(const std::shared_ptr<Connection>& connection, const QString& session, const QJsonObject& tree,
                  std::vector<LoadedResource>& resources)
{
    const QJsonObject frame = tree.value("frame").toObject();
    for (const QJsonValue& value : tree.value("resources").toArray())
    {
        const QJsonObject resource = value.toObject();
        if (!IsWhole(resource))
            continue;
        const QString url = resource.value("url").toString();
        const qint64 size = resource.value("contentSize").toInteger();
        const Command command{"Page.getResourceContent", {{"frameId", frame.value("id")}, {"url", url}}, session};
        resources.push_back({url, frame.value("loaderId").toString(), size, [connection, command, size] {
                                 return [pending = connection->Send(command), size] { return Take(*pending, size); };
                             }});
    }
    for (const QJsonValue& child : tree.value("childFrames").toArray())
        AddResources(connection, session, child.toObject(), resources);
}

} // namespace browsing::devtools

// What is evaluated in a page, always in a world of our own: its own scripts cannot redefine anything there.
#pragma once

#include "platform/browser/PendingReply_p.h"

#include <QJsonValue>
#include <QString>

namespace devtools
{

struct Command;

inline constexpr const char* kWorldName = "Vantroy";

// {"url": "…", "title": "…", "html": true, "context": 2}. It marks the document as seen. `context` is handed through.
QString LookScript(int context);

// These fail in a document that LookScript has not marked, so that the number of a context that stands for another
// document by now is noticed.
QString ImagesScript(); // [["https://…", width, height], …]
QString LinksScript();  // [["https://…", is an A element], …]

// Runtime.evaluate of a script, and the value that a reply to it holds.
Command Evaluate(const QString& script, int context, const QString& session);
HRESULT TakeValue(const Reply& reply, QJsonValue& value);

} // namespace devtools

// What is evaluated in a page, always in a world of our own: its own scripts cannot redefine anything there.
#pragma once

#include "platform/browser/Browser_p.h"

#include <QString>

namespace browsing
{

// {"url": "…", "title": "…", "html": true}. It marks the document as seen.
QString LookScript();
void ReadLook(const QJsonObject& look, SeenPage& page);

// These fail in a document that LookScript has not marked, so that a world that stands for another document by now is
// noticed.
QString ImagesScript(); // [["https://…", width, height], …]
QString LinksScript();  // [["https://…", is an A element], …]

} // namespace browsing

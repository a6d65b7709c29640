#include "platform/browser/Scripts_p.h"

#include <QUuid>

namespace browsing
{
namespace
{

// An element named "images" hides document.images even in our world, so properties are read through the prototype.
//
// Texts are carried whole, but all of one answer have 32 M characters: one page must not be able to fill the
// connection. A text for which there is no room left is empty, never cut. For the same reason a million elements are
// enough.
constexpr const char* kHelpers = R"(
    const get = (type, name, object) => Object.getOwnPropertyDescriptor(type.prototype, name).get.call(object);
    let room = 33554432;
    const carry = text =>
    {
        text = String(text);
        if (text.length > room)
            return '';
        room -= text.length;
        return text;
    };
    const all = name => Array.prototype.slice.call(get(Document, name, document), 0, 1000000);
)";

// No page can guess it.
const QString& Mark()
{
    static const QString mark = QUuid::createUuid().toString(QUuid::Id128);
    return mark;
}

QString Wrapped(const QString& before, const char* body)
{
    return "(() => {" + before + kHelpers + body + "})()";
}

QString OfMarkedDocument(const char* body)
{
    return Wrapped("if (globalThis.vantroyMark !== '" + Mark() + "') throw new Error('another document');", body);
}

} // namespace

QString LookScript()
{
    static const QString script = Wrapped("globalThis.vantroyMark = '" + Mark() + "';", R"(
        return {
            url: carry(get(Document, 'URL', document)),
            title: carry(get(Document, 'title', document)),
            html: document instanceof HTMLDocument
                || get(Document, 'contentType', document) === 'application/xhtml+xml'
        };
    )");
    return script;
}

void ReadLook(const QJsonObject& look, SeenPage& page)
{
    page.url = look.value("url").toString();
    page.title = look.value("title").toString();
    page.isHtml = look.value("html").toBool();
}

QString ImagesScript()
{
    static const QString script = OfMarkedDocument(R"(
        // An empty attribute names no image, but as an address it reads as that of the page.
        const source = i => i.currentSrc || ((i.getAttribute('src') || '').trim() ? i.src : '');
        return all('images').map(i => [carry(source(i)), i.width, i.height]);
    )");
    return script;
}

QString LinksScript()
{
    static const QString script =
        OfMarkedDocument("return all('links').map(a => [carry(a.href), a instanceof HTMLAnchorElement]);");
    return script;
}

} // namespace browsing

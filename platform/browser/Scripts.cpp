#include "platform/browser/Scripts_p.h"

#include "platform/browser/Connection_p.h"

#include <QUuid>

namespace devtools
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

QString LookScript(int context)
{
    return Wrapped("globalThis.vantroyMark = '" + Mark() + "'; const context = " + QString::number(context) + ";", R"(
        return {
            url: carry(get(Document, 'URL', document)),
            title: carry(get(Document, 'title', document)),
            html: document instanceof HTMLDocument
                || get(Document, 'contentType', document) === 'application/xhtml+xml',
            context
        };
    )");
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

Command Evaluate(const QString& script, int context, const QString& session)
{
    return {"Runtime.evaluate",
            {{"expression", script}, {"contextId", context}, {"returnByValue", true}, {"silent", true}},
            session};
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

} // namespace devtools

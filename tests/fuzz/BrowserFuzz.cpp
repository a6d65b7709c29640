// Any answers of a browser. The first byte of an input chooses the protocol. Each line behind it answers the next
// request, as its result; one that begins with ">" is a message of its own, in which "$" is the number of the request.

#include "platform/browser/Document_p.h"
#include "platform/browser/IoThread_p.h"
#include "platform/browser/Protocols_p.h"
#include "platform/browser/Socket_p.h"
#include "tests/platform/browser/Collection.h"

#include <QCoreApplication>
#include <QList>

namespace browsing
{
namespace
{

// Of the I/O thread while there is a socket.
QList<QByteArray>& Lines()
{
    static QList<QByteArray> lines;
    return lines;
}

QByteArray NumberOf(const QByteArray& request)
{
    const auto start = request.indexOf("\"id\":") + 5;
    auto end = start;
    while (end < request.size() && request[end] >= '0' && request[end] <= '9')
        ++end;
    return request.mid(start, end - start);
}

} // namespace

struct Socket::Body
{
    SocketEvents events;
};

Socket::Socket(SocketEvents events) : m_body(new Body{std::move(events)})
{}

Socket::~Socket() = default;

void Socket::Open(const std::string&)
{
    m_body->events.opened();
}

// No request is left without an answer, so nothing waits for a limit.
void Socket::Send(const QByteArray& request)
{
    const QByteArray id = NumberOf(request);
    while (!Lines().isEmpty() && Lines().first().startsWith('>'))
        m_body->events.received(QString::fromUtf8(Lines().takeFirst().mid(1).replace('$', id)));
    if (!Lines().isEmpty())
        m_body->events.received(QString::fromUtf8("{\"id\":" + id + ",\"result\":" + Lines().takeFirst() + "}"));
    m_body->events.received(QString::fromUtf8("{\"id\":" + id + ",\"error\":{}}"));
}

} // namespace browsing

namespace
{

using namespace browsing;

void ReadWindow(const SeenPage& page)
{
    CComPtr<IWebBrowser2> window;
    CComPtr<IDispatch> object;
    CComPtr<IHTMLDocument2> document;
    if (MakeWindow(page).QueryInterface(window) != S_OK || window->get_Document(object.Receive()) != S_OK ||
        object.QueryInterface(document) != S_OK)
        return;
    Text(document, &IHTMLDocument2::get_title);
    for (const auto& image : Elements<IHTMLImgElement>(document, &IHTMLDocument2::get_images))
    {
        LONG size = 0;
        Text(image, &IHTMLImgElement::get_src);
        image->get_width(&size);
        image->get_height(&size);
    }
    for (const auto& link : Elements<IHTMLAnchorElement>(document, &IHTMLDocument2::get_links))
        Text(link, &IHTMLAnchorElement::get_href);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static int argc = 0;
    static const QCoreApplication application(argc, nullptr);
    static const auto io = std::make_shared<IoThread>();
    if (size == 0)
        return 0;
    const char* const address = data[0] % 2 == 0 ? "ws://127.0.0.1:1/devtools/browser/x" : "ws://127.0.0.1:1/session";
    Lines() = QByteArray(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size - 1)).split('\n');
    const auto browser = MakeBrowser({address, true, {}, ProtocolOf(address)}, io);
    for (int look = 0; look < 2; ++look)
    {
        std::vector<SeenPage> pages;
        std::vector<LoadedResource> resources;
        browser->Look(pages);
        for (const SeenPage& page : pages)
            ReadWindow(page);
        browser->ReadResources(resources);
        for (const LoadedResource& resource : resources)
            resource.ask()();
    }
    browser->Close();
    return 0;
}

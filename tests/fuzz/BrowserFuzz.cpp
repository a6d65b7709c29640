// Any answers of a browser. The first byte of an input chooses the protocol. Each line behind it answers the next
// request, as its result; one that begins with ">" is a message of its own, in which "$" is the number of the request.

#include "platform/browser/Document_p.h"
#include "platform/browser/IoThread_p.h"
#include "platform/browser/Protocols_p.h"
#include "platform/browser/Socket_p.h"

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

void ReadImage(IDispatch& object)
{
    CComPtr<IHTMLImgElement> image;
    CComBSTR src;
    LONG size = 0;
    if (CComPtr<IDispatch>(&object).QueryInterface(image) == S_OK)
    {
        image->get_src(src.Receive());
        image->get_width(&size);
        image->get_height(&size);
    }
}

void ReadElements(IHTMLDocument2& document, HRESULT (IHTMLDocument2::*get)(IHTMLElementCollection**))
{
    CComPtr<IHTMLElementCollection> all;
    LONG length = 0;
    if ((document.*get)(all.Receive()) == S_OK)
        all->get_length(&length);
    for (LONG i = 0; i < length; ++i)
    {
        CComPtr<IDispatch> element;
        if (all->item(VariantI4(i), VariantI4(i), element.Receive()) == S_OK && element)
            ReadImage(*element.Get());
    }
}

void ReadWindow(const SeenPage& page)
{
    CComPtr<IWebBrowser2> window;
    CComPtr<IDispatch> object;
    CComPtr<IHTMLDocument2> document;
    if (MakeWindow(page).QueryInterface(window) != S_OK || window->get_Document(object.Receive()) != S_OK ||
        object.QueryInterface(document) != S_OK)
        return;
    CComBSTR title;
    document->get_title(title.Receive());
    ReadElements(*document.Get(), &IHTMLDocument2::get_images);
    ReadElements(*document.Get(), &IHTMLDocument2::get_links);
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

// What the layer relies on in a running Chromium and a running Firefox.
#include "platform/testing/RealBrowser.h"
#include "platform/browser/BrowserStates.h"
#include "platform/browser/Connection_p.h"
#include "platform/browser/IoThread_p.h"
#include "platform/internet/UrlCache.h"
#include "platform/system/LastError.h"
#include "platform/testing/HttpTestServer.h"
#include "platform/testing/RealFirefox.h"
#include "tests/platform/browser/Collection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

namespace
{

using namespace std::chrono_literals;
using TextList = std::vector<std::wstring>;

// A picture of 1 by 1.
const std::string kGif("GIF89a\1\0\1\0\x80\0\0\xFF\xFF\xFF\0\0\0!\xF9\4\1\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 43);

// Goes to the next page when it is told to.
const std::string kNavigating =
    "<script>setInterval(async () => { if ((await fetch('/go')).ok) location = '/next'; }, 20)</script>";

// A server, and a browser of its own that is open on pages of it.
class RealPages : public testing::Test
{
protected:
    std::string Url(const std::string& path, const std::string& host = "127.0.0.1") const
    {
        return "http://" + host + ":" + std::to_string(m_server.Port()) + path;
    }
    static std::wstring Wide(const std::string& ascii)
    {
        return {ascii.begin(), ascii.end()};
    }
    std::wstring WideUrl(const std::string& path) const
    {
        return Wide(Url(path));
    }
    void ServeAs(const std::string& path, const std::string& type, const std::string& body)
    {
        m_server.Serve(path, HttpAnswer{.raw = "HTTP/1.0 200 OK\r\nContent-Type: " + type + "\r\n\r\n" + body});
    }
    void Open(const std::vector<std::string>& urls, bool inFirefox = false)
    {
        if (inFirefox)
            m_firefox.emplace(urls);
        else
            m_chromium.emplace(urls[0]);
        for (std::size_t i = 1; m_chromium && i < urls.size(); ++i)
            m_chromium->OpenPage(urls[i]);
        m_registered.emplace(inFirefox ? m_firefox->Profile() : m_chromium->DataFolder());
        m_windows = Opened();
    }
    bool Shows(const TextList& expected) const
    {
        return WaitUntil([&] { return List(m_windows) == expected; });
    }
    // The document of one page, when it has loaded to its end.
    CComPtr<IHTMLDocument2> OpenDocument(const std::string& html, bool inFirefox = false)
    {
        m_server.Serve("/page", "<!doctype html>" + html + "<script>onload = () => document.title = 'done'</script>");
        Open({Url("/page")}, inFirefox);
        EXPECT_TRUE(Shows({L"done|" + WideUrl("/page")}));
        return DocumentOf(m_windows, 0);
    }

    HttpTestServer m_server;
    std::optional<RealBrowser> m_chromium;
    std::optional<RealFirefox> m_firefox;
    std::optional<Registered> m_registered;
    CComPtr<IShellWindows> m_windows;
};

class EitherBrowser : public RealPages, public testing::WithParamInterface<bool>
{
};

INSTANTIATE_TEST_SUITE_P(Real, EitherBrowser, testing::Bool(),
                         [](const auto& browser) { return std::string(browser.param ? "Firefox" : "Chromium"); });

TEST_P(EitherBrowser, PagesInOrderWithImagesAndLinksWhateverTheyRedefine)
{
    for (const char* path : {"/a.gif", "/big.gif", "/b.gif"})
        m_server.Serve(path, kGif);
    m_server.Serve("/media", R"(<!doctype html><title></title>
        <form name=images></form><form name=title></form><form name=URL></form><form name=contentType></form>
        <img src=a.gif width=30 height=20 name=images><img><img src="">
        <img srcset="big.gif 1x" src=small.gif><picture><source srcset=b.gif><img src=c.gif></picture>
        <img src=/missing.gif#part>
        <a href=one.mp3 name=links>1</a><a name=none>0</a><map><area href=two.mp3></map><a href=mailto:x@y>3</a>
        <svg><a href=four.mp3></a></svg><object name=links data=x></object>
        <script>
            onload = () => document.querySelector('title').textContent = 'media'; // the sources are chosen by then
            for (const [type, name] of [[Document, 'images'], [Document, 'URL'], [HTMLImageElement, 'currentSrc']])
                Object.defineProperty(type.prototype, name, {get: () => 'false'});
            Object.getOwnPropertyDescriptor = () => ({get: () => 'false'});
            JSON.stringify = Array.prototype.map = Array.prototype.slice = () => 'false';
        </script>)");
    m_server.Serve("/untitled", "<!doctype html><p>text");
    ServeAs("/xml", "text/xml", "<a><title>x</title></a>");
    ServeAs("/xhtml", "application/xhtml+xml",
            "<html xmlns='http://www.w3.org/1999/xhtml'><head><title>\xE6\x97\xA0</title></head><body/></html>");
    Open({Url("/media"), Url("/untitled"), Url("/xml"), Url("/xhtml")}, GetParam());
    EXPECT_TRUE(
        Shows({L"media|" + WideUrl("/media"), L"|" + WideUrl("/untitled"), L"-", L"\u65E0|" + WideUrl("/xhtml")}));
    HRESULT failure = S_OK;
    EXPECT_FALSE(DocumentOf(m_windows, 2, &failure));
    EXPECT_EQ(failure, E_NOINTERFACE);
    CComPtr<IDispatch> window;
    EXPECT_EQ(m_windows->Item(VariantI4(4), window.Receive()), S_OK);
    EXPECT_FALSE(window);

    const auto document = DocumentOf(m_windows, 0);
    const auto images = Elements<IHTMLImgElement>(document, &IHTMLDocument2::get_images);
    TextList sources;
    for (const auto& image : images)
        sources.push_back(Text(image, &IHTMLImgElement::get_src));
    EXPECT_EQ(sources, (TextList{WideUrl("/a.gif"), L"", L"", WideUrl("/big.gif"), WideUrl("/b.gif"),
                                 WideUrl("/missing.gif#part")}));
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(images.at(0)->get_width(&width) | images[0]->get_height(&height), S_OK);
    EXPECT_EQ(std::pair(width, height), std::pair(30, 20));
    TextList targets;
    for (const auto& link : Elements<IHTMLAnchorElement>(document, &IHTMLDocument2::get_links))
        targets.push_back(Text(link, &IHTMLAnchorElement::get_href));
    EXPECT_EQ(targets, (TextList{WideUrl("/one.mp3"), L"mailto:x@y"}));
}

// The number of our context comes again in the next document, which the old document's object must not read.
TEST_P(EitherBrowser, DocumentIsGoneWhenItsPageNavigates)
{
    m_server.Serve("/next", "<!doctype html><title>next</title><img src=x>");
    const auto document = OpenDocument(kNavigating, GetParam());
    m_server.Serve("/go", "now");
    EXPECT_TRUE(Shows({L"next|" + WideUrl("/next")}));
    CComPtr<IHTMLElementCollection> images;
    EXPECT_EQ(document->get_images(images.Receive()), E_FAIL);
    EXPECT_EQ(Elements<IHTMLImgElement>(DocumentOf(m_windows, 0), &IHTMLDocument2::get_images).size(), 1U);
}

// The first page asks its user something, and goes on meanwhile; the last is one of the browser's own.
TEST_F(RealPages, APageOfFirefoxHangsForItselfAndAQuestionIsLeftToTheUser)
{
    m_server.Serve("/first", "<!doctype html><title>first</title>"
                             "<script>setTimeout(() => document.title = String(confirm('?')))</script>");
    m_server.Serve("/hang", "<!doctype html><title>hangs</title><script>while (true);</script>");
    const std::string first = Url("/first", "localhost"); // in a process of its own
    Open({first, Url("/hang"), "about:support"}, true);
    EXPECT_TRUE(WaitUntil([&] { return m_server.Requests().size() >= 2; }));
    const TextList expected{L"first|" + Wide(first), L"-", L"-"};
    EXPECT_TRUE(Shows(expected));
    EXPECT_EQ(List(m_windows), expected);
    HRESULT failure = S_OK;
    DocumentOf(m_windows, 2, &failure);
    EXPECT_EQ(failure, E_FAIL);
}

TEST_F(RealPages, HugeTextsAreCarriedWholeOrNotAtAll)
{
    const auto document = OpenDocument("<script>const url = 'data:,' + '\"'.repeat(70000);"
                                       "for (let i = 0; i < 600; ++i) document.write('<img>');"
                                       "for (const image of document.images) image.src = url;</script>");
    const auto images = Elements<IHTMLImgElement>(document, &IHTMLDocument2::get_images);
    ASSERT_EQ(images.size(), 600U);
    EXPECT_EQ(Text(images.front(), &IHTMLImgElement::get_src).size(), 70006U);
    EXPECT_EQ(Text(images.back(), &IHTMLImgElement::get_src), L"");
}

TEST_F(RealPages, IsReachedAgainAfterARestart)
{
    Open({"data:text/html,<title>one</title>"});
    EXPECT_TRUE(Shows({L"one|data:text/html,<title>one</title>"}));
    m_chromium->Kill();
    LONG count = 0;
    EXPECT_TRUE(WaitUntil([&] { return m_windows->get_Count(&count) == RPC_E_DISCONNECTED; }));
    m_chromium->Start("data:text/html,<title>two</title>");
    EXPECT_TRUE(Shows({L"two|data:text/html,<title>two</title>"}));
}

class ChromiumCache : public RealPages
{
protected:
    // The path of the copy, empty if there is none.
    static std::string Copy(const std::string& url)
    {
        INTERNET_CACHE_ENTRY_INFOA buffer[4096 / sizeof(INTERNET_CACHE_ENTRY_INFOA)];
        DWORD size = sizeof buffer;
        return GetUrlCacheEntryInfoA(url.c_str(), buffer, &size) ? buffer[0].lpszLocalFileName : "";
    }
    static std::string Read(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator(file), {}};
    }
    std::ptrdiff_t RequestsFor(const std::string& path) const
    {
        return std::ranges::count(m_server.Requests(), "GET " + path + " HTTP/1.1");
    }
};

TEST_F(ChromiumCache, LoadedImageIsCopiedWithoutTheNetwork)
{
    const std::string svg = "\xEF\xBB\xBF<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    ServeAs("/s.svg", "image/svg+xml\r\nCache-Control: no-store", svg);
    m_server.Serve("/a.gif", kGif);
    OpenDocument("<img src=a.gif#part><img src=s.svg>");
    const std::string copy = Copy(Url("/a.gif#other"));
    EXPECT_EQ(Read(copy), kGif);
    EXPECT_EQ(Copy(Url("/a.gif")), copy);
    EXPECT_EQ(Read(Copy(Url("/s.svg"))), svg);
    for (const char* path : {"/a.gif", "/s.svg"})
        EXPECT_EQ(RequestsFor(path), 1) << path;
    for (const std::string& none : {Url("/other.gif"), Url("/page"), std::string()}) // the page is text
        EXPECT_EQ(Copy(none), "") << none;
    const auto folder = std::filesystem::path(copy).parent_path();
    EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all);
    CloseBrowsers();
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_F(ChromiumCache, ImageThatIsNotThereToItsEndHasNoCopy)
{
    const std::string body = kGif + std::string(5000, 'x');
    m_server.Serve("/stalled.gif", HttpAnswer{.body = body, .stallAfter = kGif.size() + 100});
    m_server.Serve("/broken.gif", HttpAnswer{.body = body, .stallAfter = kGif.size() + 100, .closeEarly = true});
    m_server.Serve("/page", "<!doctype html><title>p</title><img src=stalled.gif><img src=broken.gif>");
    Open({Url("/page")});
    EXPECT_TRUE(Shows({L"p|" + WideUrl("/page")}));
    EXPECT_TRUE(WaitUntil([&] { return RequestsFor("/stalled.gif") + RequestsFor("/broken.gif") == 2; }));
    EXPECT_EQ(Copy(Url("/stalled.gif")) + Copy(Url("/broken.gif")), "");
    m_server.Release();
    EXPECT_TRUE(WaitUntil([&] { return Read(Copy(Url("/stalled.gif"))) == body; }));
    EXPECT_EQ(Copy(Url("/broken.gif")), "");
}

// The second one is asked for ahead, and looked up when the page has loaded another under the same address.
TEST_F(ChromiumCache, ImagesThatAreExpectedAreThoseOfTheDocumentThatIsThere)
{
    const std::string html = "<img src=a.gif><img src=b.gif>";
    const auto serve = [&](const std::string& mark) {
        for (const char* path : {"/a.gif", "/b.gif"})
            ServeAs(path, "image/gif\r\nCache-Control: no-store", kGif + mark + path);
    };
    serve("one");
    OpenDocument(html + kNavigating);
    ExpectUrlCacheLookups({Url("/a.gif"), Url("/b.gif")});
    EXPECT_EQ(Read(Copy(Url("/a.gif"))), kGif + "one/a.gif");
    serve("two");
    m_server.Serve("/next", "<!doctype html>" + html + "<script>onload = () => document.title = 'next'</script>");
    m_server.Serve("/go", "now");
    EXPECT_TRUE(Shows({L"next|" + WideUrl("/next")}));
    EXPECT_TRUE(WaitUntil([&] { return Read(Copy(Url("/a.gif"))) == kGif + "two/a.gif"; }));
    EXPECT_EQ(Read(Copy(Url("/b.gif"))), kGif + "two/b.gif");
    for (const char* path : {"/a.gif", "/b.gif"})
        EXPECT_EQ(RequestsFor(path), 2);
}

TEST(Firefox, ItsSessionIsSharedInTheProcessAndGivenBack)
{
    const RealFirefox browser({"about:blank", "about:blank"});
    const BrowserReport open{browser.Profile(), browser.Profile(), BrowserState::Open, 2};
    for (int i = 0; i < 2; ++i)
    {
        const Registered registered(browser.Profile() + "," + browser.Endpoint());
        const auto windows = Opened();
        EXPECT_TRUE(WaitUntil([&] { return Count(windows) == 2; }));
        EXPECT_EQ(ReportBrowsers().at(0), open);
    }
    const Registered registered(browser.Profile());
    EXPECT_EQ(ReportBrowsers().at(0), open);
    browsing::Connection other(std::make_shared<browsing::IoThread>());
    const auto deadline = browsing::Clock::now() + 30s;
    ASSERT_EQ(other.Open(browser.Endpoint(), deadline), S_OK);
    ASSERT_EQ(other.Call({"session.new", {{"capabilities", QJsonObject()}}, {}}, deadline).result, S_OK);
    EXPECT_EQ(ReportBrowsers().at(0).state, BrowserState::Taken);
    CComPtr<IShellWindows> windows;
    EXPECT_EQ(OpenCollection(windows), RPC_E_DISCONNECTED);
    EXPECT_EQ(other.Call({"session.end", {}, {}}, deadline).result, S_OK);
    EXPECT_EQ(OpenCollection(windows), S_OK);
}

} // namespace

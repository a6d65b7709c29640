// What the layer relies on in a running Chromium.
#include "platform/testing/RealBrowser.h"
#include "platform/internet/UrlCache.h"
#include "platform/system/LastError.h"
#include "platform/testing/HttpTestServer.h"
#include "platform/testing/TempHome.h"
#include "tests/platform/browser/Collection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace
{

using TextList = std::vector<std::wstring>;

// A picture of 1 by 1.
const std::string kGif("GIF89a\1\0\1\0\x80\0\0\xFF\xFF\xFF\0\0\0!\xF9\4\1\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 43);

class RealBrowserTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_browser = new RealBrowser("data:text/html,<title>first</title>");
    }
    static void TearDownTestSuite()
    {
        delete std::exchange(s_browser, nullptr);
    }
    void SetUp() override
    {
        ASSERT_EQ(OpenCollection(m_windows), S_OK);
    }
    void TearDown() override
    {
        for (const std::string& page : m_opened)
            s_browser->ClosePage(page);
    }

    std::string Url(const std::string& path) const
    {
        return "http://127.0.0.1:" + std::to_string(m_server.Port()) + path;
    }
    std::wstring WideUrl(const std::string& path) const
    {
        const std::string url = Url(path);
        return {url.begin(), url.end()};
    }
    void Open(const std::string& url)
    {
        m_opened.push_back(s_browser->OpenPage(url));
    }
    // Waits until the windows behind the first one, which every test finds, are these.
    bool Shows(const TextList& expected) const
    {
        TextList wanted{L"first|data:text/html,<title>first</title>"};
        wanted.insert(wanted.end(), expected.begin(), expected.end());
        return WaitUntil([&] { return List(m_windows) == wanted; });
    }
    // The document of the one page that the test opens, when it has loaded to its end.
    CComPtr<IHTMLDocument2> OpenDocument(const std::string& html)
    {
        m_server.Serve("/page", "<!doctype html>" + html + "<script>onload = () => document.title = 'done'</script>");
        Open(Url("/page"));
        EXPECT_TRUE(Shows({L"done|" + WideUrl("/page")}));
        return DocumentOf(m_windows, 1);
    }

    static inline RealBrowser* s_browser = nullptr;
    HttpTestServer m_server;
    Registered m_registered{s_browser->DataFolder()};
    CComPtr<IShellWindows> m_windows;
    std::vector<std::string> m_opened;
};

TEST_F(RealBrowserTest, PagesInOrderWithTitleAndAddress)
{
    m_server.Serve("/untitled", "<!doctype html><p>text");
    m_server.Serve("/clobbered", "<!doctype html><title>true</title><form name=title></form><form name=URL></form>"
                                 "<form name=images></form><form name=contentType></form>"
                                 "<script>Object.defineProperty(Document.prototype, 'URL', {get: () => 'false'})"
                                 "</script>");
    HttpAnswer xml;
    xml.raw = "HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n<a><title>x</title></a>";
    m_server.Serve("/xml", xml);
    HttpAnswer xhtml;
    xhtml.raw = "HTTP/1.0 200 OK\r\nContent-Type: application/xhtml+xml\r\n\r\n"
                "<html xmlns='http://www.w3.org/1999/xhtml'><head><title>\xE6\x97\xA0</title></head><body/></html>";
    m_server.Serve("/xhtml", xhtml);
    for (const char* path : {"/untitled", "/clobbered", "/xml", "/xhtml"})
        Open(Url(path));
    Open("about:blank");
    EXPECT_TRUE(Shows({L"|" + WideUrl("/untitled"), L"true|" + WideUrl("/clobbered"), L"-",
                       L"\u65E0|" + WideUrl("/xhtml"), L"|about:blank"}));
    HRESULT failure = S_OK;
    EXPECT_FALSE(DocumentOf(m_windows, 3, &failure));
    EXPECT_EQ(failure, E_NOINTERFACE);
    CComPtr<IDispatch> window;
    EXPECT_EQ(m_windows->Item(VariantI4(6), window.Receive()), S_OK);
    EXPECT_FALSE(window);
}

TEST_F(RealBrowserTest, ImagesAndLinksInDocumentOrder)
{
    for (const char* path : {"/a.gif", "/big.gif", "/b.gif"})
        m_server.Serve(path, kGif);
    const auto document = OpenDocument(R"(
        <img src=a.gif width=30 height=20 name=images><img><img src="">
        <img srcset="big.gif 1x" src=small.gif><picture><source srcset=b.gif><img src=c.gif></picture>
        <img src=/missing.gif><img src=late.gif#part loading=lazy style="margin-top: 99999px">
        <a href=one.mp3 name=links>1</a><a name=none>0</a><map><area href=two.mp3></map><a href=mailto:x@y>3</a>
        <svg><a href=four.mp3></a></svg><object name=links data=x></object>)");
    TextList sources;
    for (const auto& image : Elements<IHTMLImgElement>(document, &IHTMLDocument2::get_images))
        sources.push_back(Text(image, &IHTMLImgElement::get_src));
    EXPECT_EQ(sources, (TextList{WideUrl("/a.gif"), L"", L"", WideUrl("/big.gif"), WideUrl("/b.gif"),
                                 WideUrl("/missing.gif"), WideUrl("/late.gif#part")}));
    const auto images = Elements<IHTMLImgElement>(document, &IHTMLDocument2::get_images);
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(images[0]->get_width(&width), S_OK);
    EXPECT_EQ(images[0]->get_height(&height), S_OK);
    EXPECT_EQ(std::pair(width, height), std::pair(30, 20));
    TextList targets;
    for (const auto& link : Elements<IHTMLAnchorElement>(document, &IHTMLDocument2::get_links))
        targets.push_back(Text(link, &IHTMLAnchorElement::get_href));
    EXPECT_EQ(targets, (TextList{WideUrl("/one.mp3"), L"mailto:x@y"}));
    CComPtr<IHTMLElementCollection> all;
    LONG length = 0;
    EXPECT_EQ(document->get_links(all.Receive()), S_OK);
    EXPECT_EQ(all->get_length(&length), S_OK);
    EXPECT_EQ(length, 3);
}

TEST_F(RealBrowserTest, HugeTextsAreCarriedWholeOrNotAtAll)
{
    const auto document = OpenDocument("<script>const url = 'data:,' + '\"'.repeat(70000);"
                                       "for (let i = 0; i < 600; ++i) document.write('<img>');"
                                       "for (const image of document.images) image.src = url;</script>");
    const auto images = Elements<IHTMLImgElement>(document, &IHTMLDocument2::get_images);
    ASSERT_EQ(images.size(), 600U);
    EXPECT_EQ(Text(images.front(), &IHTMLImgElement::get_src).size(), 70006U);
    EXPECT_EQ(Text(images.back(), &IHTMLImgElement::get_src), L"");
}

// The number of our context comes again in the next document, which the old document's object must not read.
TEST_F(RealBrowserTest, DocumentIsGoneWhenItsPageNavigates)
{
    m_server.Serve("/next", "<!doctype html><title>next</title><img src=x>");
    const auto document = OpenDocument("<script>setInterval(async () => {"
                                       "if ((await fetch('/go')).ok) location = '/next'; }, 20)</script>");
    m_server.Serve("/go", "now");
    EXPECT_TRUE(Shows({L"next|" + WideUrl("/next")}));
    CComPtr<IHTMLElementCollection> images;
    EXPECT_EQ(document->get_images(images.Receive()), E_FAIL);
    EXPECT_EQ(Elements<IHTMLImgElement>(DocumentOf(m_windows, 1), &IHTMLDocument2::get_images).size(), 1U);
}

TEST_F(RealBrowserTest, HangingPageIsAWindowWithoutDocument)
{
    m_server.Serve("/hang", "<!doctype html><title>hangs</title><script>while (true);</script>");
    Open(Url("/hang"));
    Open("about:blank");
    EXPECT_TRUE(WaitUntil([&] { return m_server.Requests().size() == 1; }));
    EXPECT_TRUE(Shows({L"-", L"|about:blank"}));
}

class CacheTest : public RealBrowserTest
{
protected:
    // The path of the copy, empty if there is none.
    static std::string Copy(const std::string& url)
    {
        DWORD size = 4096;
        const auto buffer = std::make_unique<INTERNET_CACHE_ENTRY_INFOA[]>(4096 / sizeof(INTERNET_CACHE_ENTRY_INFOA));
        GetUrlCacheEntryInfoA(url.c_str(), buffer.get(), &size);
        return GetLastError() == 0 ? buffer[0].lpszLocalFileName : "";
    }
    static std::string Read(const std::string& path)
    {
        std::ostringstream content;
        content << std::ifstream(path, std::ios::binary).rdbuf();
        return content.str();
    }
    std::size_t RequestsFor(const std::string& path) const
    {
        const auto requests = m_server.Requests();
        return static_cast<std::size_t>(std::ranges::count_if(
            requests, [&](const std::string& line) { return line.find(' ' + path + ' ') != std::string::npos; }));
    }
};

TEST_F(CacheTest, LoadedImageIsCopiedWithoutTheNetwork)
{
    HttpAnswer svg;
    svg.raw = "HTTP/1.0 200 OK\r\nContent-Type: image/svg+xml\r\nCache-Control: no-store\r\n\r\n\xEF\xBB\xBF"
              "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    m_server.Serve("/s.svg", svg);
    m_server.Serve("/a.gif", kGif);
    OpenDocument("<img src=a.gif#part><img src=s.svg>");
    const std::string copy = Copy(Url("/a.gif#other"));
    EXPECT_EQ(Read(copy), kGif);
    EXPECT_EQ(Copy(Url("/a.gif")), copy);
    EXPECT_EQ(Read(Copy(Url("/s.svg"))), svg.raw.substr(svg.raw.find("\r\n\r\n") + 4));
    EXPECT_EQ(RequestsFor("/a.gif"), 1U);
    EXPECT_EQ(RequestsFor("/s.svg"), 1U);
    EXPECT_EQ(Copy(Url("/other.gif")), "");
    EXPECT_EQ(Copy(Url("/page")), ""); // text
    EXPECT_EQ(Copy(""), "");
    struct stat folder = {};
    const auto parent = std::filesystem::path(copy).parent_path();
    EXPECT_EQ(stat(parent.c_str(), &folder), 0);
    EXPECT_EQ(folder.st_mode & 0777, 0700U);
    CloseBrowsers();
    EXPECT_FALSE(std::filesystem::exists(parent));
}

TEST_F(CacheTest, ImageThatIsNotThereToItsEndHasNoCopy)
{
    HttpAnswer stalled;
    stalled.body = kGif + std::string(5000, 'x');
    stalled.stallAfter = kGif.size() + 100;
    m_server.Serve("/stalled.gif", stalled);
    HttpAnswer broken = stalled;
    broken.closeEarly = true;
    m_server.Serve("/broken.gif", broken);
    m_server.Serve("/page", "<!doctype html><title>p</title><img src=stalled.gif><img src=broken.gif>");
    Open(Url("/page"));
    EXPECT_TRUE(Shows({L"p|" + WideUrl("/page")}));
    EXPECT_TRUE(WaitUntil([&] { return RequestsFor("/stalled.gif") + RequestsFor("/broken.gif") == 2; }));
    EXPECT_EQ(Copy(Url("/stalled.gif")), "");
    EXPECT_EQ(Copy(Url("/broken.gif")), "");
    m_server.Release();
    EXPECT_TRUE(WaitUntil([&] { return Read(Copy(Url("/stalled.gif"))) == stalled.body; }));
    EXPECT_EQ(Copy(Url("/broken.gif")), "");
}

TEST(RealBrowserRestart, BrowserIsReachedAgain)
{
    RealBrowser browser("data:text/html,<title>one</title>");
    const Registered registered(browser.DataFolder());
    CComPtr<IShellWindows> windows;
    ASSERT_EQ(OpenCollection(windows), S_OK);
    EXPECT_TRUE(WaitUntil([&] { return List(windows) == TextList{L"one|data:text/html,<title>one</title>"}; }));
    browser.Kill();
    LONG count = 0;
    EXPECT_TRUE(WaitUntil([&] { return windows->get_Count(&count) == RPC_E_DISCONNECTED; }));
    browser.Start("data:text/html,<title>two</title>");
    EXPECT_TRUE(WaitUntil([&] { return List(windows) == TextList{L"two|data:text/html,<title>two</title>"}; }));
}

} // namespace

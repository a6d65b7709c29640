// What the layer relies on in a running Firefox.
#include "platform/testing/RealFirefox.h"
#include "platform/browser/BrowserStates.h"
#include "platform/browser/Connection_p.h"
#include "platform/browser/IoThread_p.h"
#include "platform/testing/HttpTestServer.h"
#include "tests/platform/browser/Collection.h"

#include <gtest/gtest.h>

#include <chrono>

namespace
{

using namespace std::chrono_literals;
using TextList = std::vector<std::wstring>;

class RealFirefoxTest : public testing::Test
{
protected:
    std::string Url(const std::string& path, const std::string& host = "127.0.0.1") const
    {
        return "http://" + host + ":" + std::to_string(m_server.Port()) + path;
    }
    std::wstring WideUrl(const std::string& path) const
    {
        const std::string url = Url(path);
        return {url.begin(), url.end()};
    }
    void ServeAs(const std::string& path, const std::string& type, const std::string& body)
    {
        HttpAnswer answer;
        answer.raw = "HTTP/1.0 200 OK\r\nContent-Type: " + type + "\r\n\r\n" + body;
        m_server.Serve(path, answer);
    }

    HttpTestServer m_server;
};

TEST_F(RealFirefoxTest, PagesWithImagesAndLinksInOrderWhateverTheyRedefine)
{
    m_server.Serve("/media", R"(<!doctype html><title>media</title><form name=images></form><form name=title></form>
        <img src=a.gif width=30 height=20 name=images><img><img src=""><img srcset="big.gif 1x" src=small.gif>
        <a href=one.mp3 name=links>1</a><a name=none>0</a><map><area href=two.mp3></map><a href=mailto:x@y>3</a>
        <script>
            for (const [type, name] of [[Document, 'images'], [Document, 'URL'], [HTMLImageElement, 'currentSrc']])
                Object.defineProperty(type.prototype, name, {get: () => 'false'});
            Object.getOwnPropertyDescriptor = () => ({get: () => 'false'});
            JSON.stringify = Array.prototype.map = Array.prototype.slice = () => 'false';
        </script>)");
    ServeAs("/xml", "text/xml", "<a/>");
    ServeAs("/xhtml", "application/xhtml+xml",
            "<html xmlns='http://www.w3.org/1999/xhtml'><head><title>\xE6\x97\xA0</title></head><body/></html>");
    const RealFirefox browser({Url("/media"), Url("/xml"), "about:support", Url("/xhtml")});
    const Registered registered(browser.Profile());
    CComPtr<IShellWindows> windows;
    ASSERT_EQ(OpenCollection(windows), S_OK);
    EXPECT_TRUE(WaitUntil([&] {
        return List(windows) == TextList{L"media|" + WideUrl("/media"), L"-", L"-", L"\u65E0|" + WideUrl("/xhtml")};
    }));
    HRESULT failure = S_OK;
    EXPECT_FALSE(DocumentOf(windows, 1, &failure));
    EXPECT_EQ(failure, E_NOINTERFACE);
    EXPECT_FALSE(DocumentOf(windows, 2, &failure));
    EXPECT_EQ(failure, E_FAIL); // a page of the browser's own
    const auto document = DocumentOf(windows, 0);
    const auto images = Elements<IHTMLImgElement>(document, &IHTMLDocument2::get_images);
    TextList sources;
    for (const auto& image : images)
        sources.push_back(Text(image, &IHTMLImgElement::get_src));
    EXPECT_EQ(sources, (TextList{WideUrl("/a.gif"), L"", L"", WideUrl("/big.gif")}));
    LONG width = 0;
    LONG height = 0;
    images.at(0)->get_width(&width);
    images.at(0)->get_height(&height);
    EXPECT_EQ(std::pair(width, height), std::pair(30, 20));
    TextList targets;
    for (const auto& link : Elements<IHTMLAnchorElement>(document, &IHTMLDocument2::get_links))
        targets.push_back(Text(link, &IHTMLAnchorElement::get_href));
    EXPECT_EQ(targets, (TextList{WideUrl("/one.mp3"), L"mailto:x@y"}));
}

// What a page asks its user is left to its user.
TEST_F(RealFirefoxTest, HangingPageIsAWindowWithoutDocumentAndAskingOneIsNotAnswered)
{
    m_server.Serve("/hang", "<!doctype html><title>hangs</title><script>while (true);</script>");
    m_server.Serve("/ask", "<!doctype html><title>asks</title>"
                           "<script>setTimeout(() => document.title = String(confirm('?')))</script>");
    const RealFirefox browser({Url("/ask", "localhost"), Url("/hang")});
    EXPECT_TRUE(WaitUntil([&] { return m_server.Requests().size() >= 2; }));
    const Registered registered(browser.Endpoint());
    CComPtr<IShellWindows> windows;
    ASSERT_EQ(OpenCollection(windows), S_OK);
    const std::string ask = Url("/ask", "localhost");
    const TextList expected{L"asks|" + std::wstring(ask.begin(), ask.end()), L"-"};
    EXPECT_TRUE(WaitUntil([&] { return List(windows) == expected; }));
    EXPECT_EQ(List(windows), expected);
}

TEST_F(RealFirefoxTest, DocumentIsGoneWhenItsPageNavigates)
{
    m_server.Serve("/next", "<!doctype html><title>next</title><img src=x>");
    m_server.Serve("/page", "<!doctype html><title>page</title><script>setInterval(async () => {"
                            "if ((await fetch('/go')).ok) location = '/next'; }, 20)</script>");
    const RealFirefox browser({Url("/page")});
    const Registered registered(browser.Profile());
    CComPtr<IShellWindows> windows;
    ASSERT_EQ(OpenCollection(windows), S_OK);
    EXPECT_TRUE(WaitUntil([&] { return List(windows) == TextList{L"page|" + WideUrl("/page")}; }));
    const auto document = DocumentOf(windows, 0);
    m_server.Serve("/go", "now");
    EXPECT_TRUE(WaitUntil([&] { return List(windows) == TextList{L"next|" + WideUrl("/next")}; }));
    CComPtr<IHTMLElementCollection> images;
    EXPECT_EQ(document->get_images(images.Receive()), E_FAIL);
    EXPECT_EQ(Elements<IHTMLImgElement>(DocumentOf(windows, 0), &IHTMLDocument2::get_images).size(), 1U);
}

TEST_F(RealFirefoxTest, ItsSessionIsSharedInTheProcessAndGivenBack)
{
    const RealFirefox browser({"about:blank", "about:blank"});
    const BrowserReport open{browser.Profile(), browser.Profile(), BrowserState::Open, 2};
    for (int i = 0; i < 2; ++i)
    {
        const Registered registered(browser.Profile() + "," + browser.Endpoint());
        CComPtr<IShellWindows> windows;
        ASSERT_EQ(OpenCollection(windows), S_OK);
        EXPECT_TRUE(WaitUntil([&] { return Count(windows) == 2; }));
        EXPECT_EQ(ReportBrowsers().at(0), open);
    }
    setenv("VANTROY_BROWSER", browser.Profile().c_str(), 1);
    EXPECT_EQ(ReportBrowsers().at(0), open);
    browsing::Connection other(std::make_shared<browsing::IoThread>());
    const auto deadline = browsing::Clock::now() + 30s;
    ASSERT_EQ(other.Open(browser.Endpoint(), deadline), S_OK);
    ASSERT_EQ(other.Call({"session.new", {{"capabilities", QJsonObject()}}, {}}, deadline).result, S_OK);
    EXPECT_EQ(ReportBrowsers().at(0).state, BrowserState::Taken);
    const Registered registered(browser.Profile());
    CComPtr<IShellWindows> windows;
    EXPECT_EQ(OpenCollection(windows), RPC_E_DISCONNECTED);
    EXPECT_EQ(other.Call({"session.end", {}, {}}, deadline).result, S_OK);
    EXPECT_EQ(OpenCollection(windows), S_OK);
}

} // namespace

// What a browser can do wrong, played by a server of our own.
#include "tests/platform/browser/FakeBrowser.h"
#include "tests/platform/browser/Collection.h"

#include "platform/system/Thread.h"
#include "platform/testing/TempHome.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace
{

using List_t = std::vector<std::wstring>;

QString MethodOf(const QJsonObject& request)
{
    return request.value("method").toString();
}

// The first request of a look at a page.
bool IsLookAt(const QJsonObject& request, int page)
{
    const QString number = QString::number(page);
    const QJsonObject target = request.value("params").toObject().value("target").toObject();
    return (MethodOf(request) == "Page.createIsolatedWorld" && request.value("sessionId") == "s-page" + number) ||
           target.value("context") == "page" + number;
}

CComPtr<IShellWindows> Opened()
{
    CComPtr<IShellWindows> windows;
    EXPECT_EQ(OpenCollection(windows), S_OK);
    return windows;
}

const List_t kThree{L"a|http://x/a", L"b|http://x/b", L"c|http://x/c"};

class EitherProtocol : public testing::TestWithParam<std::string (FakeBrowser::*)() const>
{
protected:
    static std::string EndpointOf(const FakeBrowser& browser)
    {
        return (browser.*GetParam())();
    }
};

INSTANTIATE_TEST_SUITE_P(FakeBrowser, EitherProtocol,
                         testing::Values(&FakeBrowser::Endpoint, &FakeBrowser::BidiEndpoint));

TEST_P(EitherProtocol, ListsTabsInOrderOverOneConnectionWithoutOrigin)
{
    const FakeBrowser browser({"a", "b", "c"});
    const Registered registered(EndpointOf(browser));
    const auto windows = Opened();
    EXPECT_EQ(List(windows), kThree);
    EXPECT_EQ(List(Opened()), kThree);
    ASSERT_EQ(browser.Heads().size(), 1U);
    EXPECT_EQ(browser.Heads()[0].find("Origin:"), std::string::npos);
}

TEST_P(EitherProtocol, MatchesRepliesThatComeOutOfOrderAmongOthers)
{
    std::vector<QJsonObject> held;
    const FakeBrowser* self = nullptr;
    const FakeBrowser browser({"a", "b", "c"}, [&](const QJsonObject& request, const FakeBrowser::Send& send) {
        if (!IsLookAt(request, 0) && !IsLookAt(request, 1) && !IsLookAt(request, 2))
            return false;
        held.push_back(request);
        for (; held.size() == 3; held.clear())
        {
            for (const int i : {2, 0, 1})
            {
                send(R"({"method": "Page.frameNavigated", "sessionId": "s-page0", "params": {}})");
                send(R"({"id": 99999, "result": {}})");
                send(R"({"id": "text", "result": 1})");
                send("[1, 2]");
                send(R"({"id": )" + QString::number(held[0].value("id").toInt()));
                self->Answer(held[static_cast<std::size_t>(i)], send);
            }
        }
        return true;
    });
    self = &browser;
    const Registered registered(EndpointOf(browser));
    EXPECT_EQ(List(Opened()), kThree);
}

TEST_P(EitherProtocol, SilentPageCostsItsLimitOnceAndComesBack)
{
    std::atomic<bool> silent{true};
    std::vector<QJsonObject> held;
    const FakeBrowser browser({"a", "b"}, [&](const QJsonObject& request, const FakeBrowser::Send& send) {
        if (!IsLookAt(request, 0))
        {
            if (!silent && !held.empty())
                send(FakeBrowser::Reply(std::exchange(held, {})[0], {}));
            return false;
        }
        if (silent)
            held.push_back(request);
        return silent.load();
    });
    const Registered registered(EndpointOf(browser));
    const auto windows = Opened();
    EXPECT_EQ(List(windows), (List_t{L"-", L"b|http://x/b"}));
    HRESULT failure = S_OK;
    EXPECT_FALSE(DocumentOf(windows, 0, &failure));
    EXPECT_EQ(failure, RPC_E_TIMEOUT);
    // One request only: looks after the first do not ask, and so do not wait.
    EXPECT_EQ(List(windows), (List_t{L"-", L"b|http://x/b"}));
    silent = false;
    EXPECT_TRUE(WaitUntil([&] { return List(windows) == List_t({L"a|http://x/a", L"b|http://x/b"}); }));
}

TEST(FakeBrowser, CrashedAndClosedPagesFailTheirCallsAlone)
{
    const FakeBrowser browser({"a", "b", "c"}, [](const QJsonObject& request, const FakeBrowser::Send& send) {
        if (IsLookAt(request, 0))
            send(R"({"method": "Inspector.targetCrashed", "sessionId": "s-page0", "params": {}})");
        else if (IsLookAt(request, 1))
            send(R"({"method": "Target.detachedFromTarget", "params": {"sessionId": "s-page1"}})");
        else
            return false;
        return true;
    });
    const Registered registered(browser.Endpoint());
    const auto windows = Opened();
    EXPECT_EQ(List(windows), (List_t{L"-", L"-", L"c|http://x/c"}));
    HRESULT failure = S_OK;
    EXPECT_FALSE(DocumentOf(windows, 0, &failure));
    EXPECT_EQ(failure, E_FAIL);
}

// All calls wait when the browser goes; they must fail by that and not by their limits, which the codes tell apart.
TEST_P(EitherProtocol, DyingBrowserFailsAllWaitingCalls)
{
    std::atomic<int> waiting{0};
    FakeBrowser browser({"a"}, [&](const QJsonObject& request, const FakeBrowser::Send&) {
        const QString script = request.value("params").toObject().value("expression").toString();
        const bool isHeld = script.contains("'images'") || script.contains("'links'");
        waiting += isHeld ? 1 : 0;
        return isHeld;
    });
    const Registered registered(EndpointOf(browser));
    std::vector<HRESULT> results(4, S_OK);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < results.size(); ++i)
    {
        threads.emplace_back([&results, i] {
            CoInitialize(nullptr);
            const auto windows = Opened();
            Count(windows);
            CComPtr<IHTMLElementCollection> all;
            const auto document = DocumentOf(windows, 0);
            results[i] = i % 2 != 0 ? document->get_images(all.Receive()) : document->get_links(all.Receive());
            CoUninitialize();
        });
    }
    EXPECT_TRUE(WaitUntil([&] { return waiting == 4; }));
    const auto windows = Opened();
    browser.Die();
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(results, std::vector<HRESULT>(4, RPC_E_DISCONNECTED));
    LONG count = -1;
    EXPECT_EQ(windows->get_Count(&count), RPC_E_DISCONNECTED);
    EXPECT_EQ(count, 0);
}

TEST_P(EitherProtocol, SocketThatIsCutInTheMiddleOfAMessageFailsTheLook)
{
    FakeBrowser* self = nullptr;
    FakeBrowser browser({"a", "b"}, [&](const QJsonObject& request, const FakeBrowser::Send&) {
        if (IsLookAt(request, 0))
            self->BreakOff();
        return IsLookAt(request, 0) || IsLookAt(request, 1);
    });
    self = &browser;
    const Registered registered(EndpointOf(browser));
    LONG count = -1;
    EXPECT_EQ(Opened()->get_Count(&count), RPC_E_DISCONNECTED);
}

TEST_P(EitherProtocol, CancelledThreadLeavesItsCall)
{
    std::atomic<bool> isHeld{false};
    const FakeBrowser browser({"a"}, [&](const QJsonObject&, const FakeBrowser::Send&) { return isHeld = true; });
    const Registered registered(EndpointOf(browser));
    HRESULT result = S_OK;
    const auto worker = AfxBeginThread(
        [](void* out) -> UINT {
            CoInitialize(nullptr);
            LONG count = 0;
            CComPtr<IShellWindows> windows;
            const HRESULT opened = OpenCollection(windows);
            *static_cast<HRESULT*>(out) = windows ? windows->get_Count(&count) : opened;
            CoUninitialize();
            return 0;
        },
        &result);
    EXPECT_TRUE(WaitUntil([&] { return isHeld.load(); }));
    worker->CancelSynchronousIo();
    worker->Wait();
    EXPECT_EQ(result, E_ABORT);
}

TEST_P(EitherProtocol, TakesAMessageOfManyMegabytesAndOddValues)
{
    const FakeBrowser browser({"a"}, [](const QJsonObject& request, const FakeBrowser::Send& send) {
        const QString script = request.value("params").toObject().value("expression").toString();
        if (!script.contains("'images'"))
            return false;
        QString value = QString(R"([["x\ud800y", 1e99, "7"], 5, null, [], ["%1", -3, 4]])").arg(QString(16 << 20, 'z'));
        if (MethodOf(request) == "script.evaluate")
            value = '"' + value.replace('\\', "\\\\").replace('"', "\\\"") + '"';
        send(QString(R"({"id": %1, "result": {"type": "success", "result": {"value": )")
                 .arg(request.value("id").toInt()) +
             value + "}}}");
        return true;
    });
    const Registered registered(EndpointOf(browser));
    const auto windows = Opened();
    Count(windows);
    const auto images = Elements<IHTMLImgElement>(DocumentOf(windows, 0), &IHTMLDocument2::get_images);
    ASSERT_EQ(images.size(), 5U);
    LONG width = 0;
    EXPECT_EQ(Text(images[0], &IHTMLImgElement::get_src), L"x\uFFFDy");
    EXPECT_EQ(Text(images[1], &IHTMLImgElement::get_src), L"");
    EXPECT_EQ(Text(images[4], &IHTMLImgElement::get_src).size(), std::size_t{16} << 20);
    EXPECT_EQ(images[4]->get_width(&width), S_OK);
    EXPECT_EQ(width, -3);
}

// The result of one request is replaced; what is not what it should be is a page or a window less, and no more.
TEST(FakeBrowser, SurvivesResultsOfAnyShape)
{
    const char* const shapes[] = {
        "7",
        "null",
        "[]",
        "{}",
        R"({"targetInfos": 7, "contexts": "x", "type": "success", "result": []})",
        R"({"targetInfos": [7, null, {"type": 5, "targetId": [], "embedderData": []}],
                                      "contexts": [7, null, [], {}, {"context": 5}, {"context": ""}]})",
        R"({"type": "success", "realm": 5, "result": {"type": "string", "value": 5},
                                      "executionContextId": "x", "windowId": "x", "sessionId": 5})",
        R"({"type": "success", "result": {"value": "[[[["}, "capabilities": []})",
        R"({"type": "exception", "exceptionDetails": {}, "capabilities": {"moz:profile": 5}})",
        R"({"type": "success", "result": {"value": "{\"url\": 7, \"title\": [], \"html\": 1}"}})",
        R"({"result": {"value": {"url": 7, "title": [], "html": 1, "context": "x"}}})"};
    const struct
    {
        std::string (FakeBrowser::*endpoint)() const;
        const char* method;
    } requests[] = {{&FakeBrowser::Endpoint, "Target.getTargets"},
                    {&FakeBrowser::Endpoint, "Target.attachToTarget"},
                    {&FakeBrowser::Endpoint, "Browser.getWindowForTarget"},
                    {&FakeBrowser::Endpoint, "Page.createIsolatedWorld"},
                    {&FakeBrowser::Endpoint, "Runtime.evaluate"},
                    {&FakeBrowser::BidiEndpoint, "session.new"},
                    {&FakeBrowser::BidiEndpoint, "session.end"},
                    {&FakeBrowser::BidiEndpoint, "browsingContext.getTree"},
                    {&FakeBrowser::BidiEndpoint, "script.evaluate"}};
    for (const auto& [endpoint, method] : requests)
    {
        for (const char* shape : shapes)
        {
            const FakeBrowser browser({"a", "b"}, [&](const QJsonObject& request, const FakeBrowser::Send& send) {
                if (MethodOf(request) != method)
                    return false;
                send(R"({"method": "Target.attachedToTarget", "params": {"sessionId": [], "targetInfo": 7}})");
                send(R"({"method": [], "params": 5, "sessionId": {}})");
                send(QString(R"({"id": %1, "result": %2})").arg(request.value("id").toInt()).arg(shape));
                return true;
            });
            const Registered registered((browser.*endpoint)());
            CComPtr<IShellWindows> windows;
            const HRESULT result = OpenCollection(windows);
            EXPECT_TRUE(result == S_OK || result == RPC_E_DISCONNECTED) << method << shape;
            EXPECT_LE(windows ? List(windows).size() : 0, 2U) << method << shape;
        }
    }
}

TEST(Endpoints, NamedBrowserHasToAnswerOnThisMachine)
{
    FakeBrowser gone({"a"});
    const std::string stale = gone.Endpoint();
    gone.Die();
    const struct
    {
        std::string named;
        HRESULT expected;
    } cases[] = {
        {stale, RPC_E_DISCONNECTED},
        {"http://127.0.0.1:" + std::to_string(gone.Port()), RPC_E_DISCONNECTED},
        {"/no/such/folder", RPC_E_DISCONNECTED},
        {"http://192.0.2.1:9222", E_INVALIDARG},
        {"ws://192.0.2.1:9222/devtools/browser/x", E_INVALIDARG},
        {"http://127.0.0.1@192.0.2.1:9222", E_INVALIDARG},
        {"http://browser.example:9222", E_INVALIDARG},
        {"https://127.0.0.1:9222", E_INVALIDARG},
        {gone.BidiEndpoint(), RPC_E_DISCONNECTED},
        {"ws://192.0.2.1:9222/session", E_INVALIDARG},
        {"ws://browser.example/session", E_INVALIDARG},
    };
    for (const auto& [named, expected] : cases)
    {
        const Registered registered(named);
        CComPtr<IShellWindows> windows;
        EXPECT_EQ(OpenCollection(windows), expected) << named;
        EXPECT_FALSE(windows);
    }
}

TEST(Endpoints, FolderOfABrowserAndOfAProfile)
{
    const TempHome home;
    const FakeBrowser open({"a"});
    const FakeBrowser asking({"b"}, nullptr, 404);
    const auto fileOf = [](const FakeBrowser& browser, const char* path) {
        return std::to_string(browser.Port()) + "\n" + path;
    };
    const struct
    {
        std::string file;
        List_t expected;
    } cases[] = {
        {fileOf(open, "/devtools/browser/fake"), {L"a|http://x/a"}},
        {fileOf(asking, "/devtools/browser/fake"), {L"b|http://x/b"}},
        {fileOf(open, "/devtools/browser/another"), {}}, // left behind: the port is another browser's now
        {"99999\n/devtools/browser/fake", {}},
        {"", {}},
    };
    for (const auto& [file, expected] : cases)
    {
        home.Write("data/DevToolsActivePort", file);
        home.Write("data/Default/Preferences", "{}");
        for (const char* folder : {"data", "data/Default", "data/Default/"})
        {
            const Registered registered(home.Path(folder));
            CComPtr<IShellWindows> windows;
            EXPECT_EQ(OpenCollection(windows), expected.empty() ? RPC_E_DISCONNECTED : S_OK) << file;
            EXPECT_EQ(windows ? List(windows) : List_t(), expected) << file;
        }
    }
}

TEST(Endpoints, FirefoxProfile)
{
    const TempHome home;
    std::atomic<int> sessions{0};
    const FakeBrowser browser({"a"}, [&](const QJsonObject& request, const FakeBrowser::Send& send) {
        sessions -= MethodOf(request) == "session.end" ? 1 : 0;
        if (MethodOf(request) != "session.new")
            return false;
        ++sessions;
        send(FakeBrowser::Reply(request, {{"capabilities", QJsonObject{{"moz:profile", "/sandboxed/x.default"}}}}));
        return true;
    });
    const std::string port = std::to_string(browser.Port());
    const struct
    {
        const char* profile;
        std::string file;
        HRESULT expected;
    } cases[] = {
        {"x.default", R"({"ws_host": "127.0.0.1", "ws_port": )" + port + "}", S_OK},
        {"x.default/", R"({"ws_host": "localhost", "ws_port": )" + port + "}", S_OK},
        {"another", R"({"ws_host": "127.0.0.1", "ws_port": )" + port + "}", RPC_E_DISCONNECTED}, // was given anew
        {"x.default", R"({"ws_host": "192.0.2.1", "ws_port": )" + port + "}", E_INVALIDARG},
        {"x.default", R"({"ws_host": 7, "ws_port": )" + port + "}", E_INVALIDARG},
        {"x.default", R"({"ws_host": "127.0.0.1", "ws_port": ")" + port + "\"}", RPC_E_DISCONNECTED},
        {"x.default", R"({"ws_host": "127.0.0.1", "ws_port": 1e9})", RPC_E_DISCONNECTED},
        {"x.default", "{" + std::string(9000, ' ') + R"("ws_host": "127.0.0.1", "ws_port": 1})", RPC_E_DISCONNECTED},
        {"x.default", "", RPC_E_DISCONNECTED},
    };
    for (const auto& [profile, file, expected] : cases)
    {
        home.Write(std::string(profile) + "/WebDriverBiDiServer.json", file);
        const Registered registered(home.Path(profile));
        CComPtr<IShellWindows> windows;
        EXPECT_EQ(OpenCollection(windows), expected) << profile << file;
        EXPECT_EQ(windows ? Count(windows) : 0, expected == S_OK ? 1 : 0);
        EXPECT_EQ(sessions, expected == S_OK ? 1 : 0) << profile;
    }
}

TEST(Endpoints, KnownFoldersWithoutAName)
{
    const TempHome home;
    setenv("HOME", home.Folder().c_str(), 1);
    unsetenv("XDG_CONFIG_HOME");
    const Registered registered("");
    const auto windows = Opened();
    EXPECT_EQ(List(windows), List_t());
    const FakeBrowser first({"a"});
    const FakeBrowser second({"b"});
    const FakeBrowser third({"c"});
    home.Write(".config/chromium/DevToolsActivePort", std::to_string(first.Port()) + "\n/devtools/browser/fake");
    home.Write(".config/vivaldi/DevToolsActivePort", "1\n/devtools/browser/left-behind");
    home.Write(".var/app/org.chromium.Chromium/config/chromium/DevToolsActivePort",
               std::to_string(second.Port()) + "\n/devtools/browser/fake");
    home.Write(".mozilla/firefox/x.default/WebDriverBiDiServer.json",
               R"({"ws_host": "127.0.0.1", "ws_port": )" + std::to_string(third.Port()) + "}");
    home.Write("snap/firefox/common/.mozilla/firefox/y/WebDriverBiDiServer.json",
               R"({"ws_host": "::1", "ws_port": 1})");
    EXPECT_EQ(List(windows), kThree);
}

} // namespace

// What a browser can do wrong, played by a server of our own.
#include "tests/platform/browser/FakeBrowser.h"
#include "tests/platform/browser/Collection.h"

#include "platform/testing/TempHome.h"
#include "tests/platform/Worker.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <sys/stat.h>
#include <thread>

namespace
{

using List_t = std::vector<std::wstring>;

QString MethodOf(const QJsonObject& request)
{
    return request.value("method").toString();
}

QString ScriptOf(const QJsonObject& request)
{
    return request.value("params").toObject().value("expression").toString();
}

// The first request of a look at a page.
bool IsLookAt(const QJsonObject& request, int page)
{
    const QString number = QString::number(page);
    const QJsonObject target = request.value("params").toObject().value("target").toObject();
    return (MethodOf(request) == "Page.createIsolatedWorld" && request.value("sessionId") == "s-page" + number) ||
           target.value("context") == "page" + number;
}

// What a program gets that opens the browsers of a name, lists their pages and ends.
std::pair<HRESULT, List_t> Found(const std::string& named)
{
    const Registered registered(named);
    CComPtr<IShellWindows> windows;
    const HRESULT result = OpenCollection(windows);
    return {result, windows ? List(windows) : List_t()};
}

// What a browser writes into its data folder.
std::string PortFile(const FakeBrowser& browser)
{
    return std::to_string(browser.Port()) + "\n/devtools/browser/fake";
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
    EXPECT_EQ(List(Opened()), kThree);
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
        if (held.size() < 3)
            return true;
        for (const std::size_t i : {2, 0, 1})
        {
            send(R"({"method": "Page.frameNavigated", "sessionId": "s-page0", "params": {}})");
            send(R"({"id": 99999, "result": {}})");
            send(R"({"id": "text", "result": 1})");
            send("[1, 2]");
            send(R"({"id": )" + QString::number(held[0].value("id").toInt()));
            self->Answer(held[i], send);
        }
        held.clear();
        return true;
    });
    self = &browser;
    EXPECT_EQ(Found(EndpointOf(browser)), std::pair(S_OK, kThree));
}

TEST_P(EitherProtocol, SilentPageCostsItsLimitOnceAndComesBack)
{
    std::atomic<bool> silent{true};
    std::vector<QJsonObject> held;
    const FakeBrowser browser({"a", "b"}, [&](const QJsonObject& request, const FakeBrowser::Send& send) {
        const bool isHeld = silent && IsLookAt(request, 0);
        if (isHeld)
            held.push_back(request);
        else if (!silent && !held.empty() && !IsLookAt(request, 0))
            send(FakeBrowser::Reply(std::exchange(held, {})[0], {}));
        return isHeld;
    });
    const Registered registered(EndpointOf(browser));
    const auto windows = Opened();
    const List_t without{L"-", L"b|http://x/b"};
    EXPECT_EQ(List(windows), without);
    HRESULT failure = S_OK;
    EXPECT_FALSE(DocumentOf(windows, 0, &failure));
    EXPECT_EQ(failure, RPC_E_TIMEOUT);
    // One request only: looks after the first do not ask, and so do not wait.
    EXPECT_EQ(List(windows), without);
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
        const bool isHeld = ScriptOf(request).contains("'images'");
        waiting += isHeld ? 1 : 0;
        return isHeld;
    });
    const Registered registered(EndpointOf(browser));
    std::vector<HRESULT> results(4, S_OK);
    std::vector<std::thread> threads;
    for (HRESULT& result : results)
        threads.emplace_back([&result] {
            CoInitialize(nullptr);
            const auto windows = Opened();
            Count(windows);
            CComPtr<IHTMLElementCollection> images;
            result = DocumentOf(windows, 0)->get_images(images.Receive());
            CoUninitialize();
        });
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
    const Worker worker([&result] {
        CoInitialize(nullptr);
        LONG count = 0;
        CComPtr<IShellWindows> windows;
        result = OpenCollection(windows);
        if (windows)
            result = windows->get_Count(&count);
        CoUninitialize();
    });
    EXPECT_TRUE(WaitUntil([&] { return isHeld.load(); }));
    worker->CancelSynchronousIo();
    worker->Wait();
    EXPECT_EQ(result, E_ABORT);
}

TEST_P(EitherProtocol, TakesAMessageOfManyMegabytesAndOddValues)
{
    const FakeBrowser browser({"a"}, [](const QJsonObject& request, const FakeBrowser::Send& send) {
        if (!ScriptOf(request).contains("'images'"))
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
    EXPECT_EQ(Text(images[0], &IHTMLImgElement::get_src) + Text(images[1], &IHTMLImgElement::get_src), L"x\uFFFDy");
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
    const std::pair<std::string (FakeBrowser::*)() const, const char*> requests[] = {
        {&FakeBrowser::Endpoint, "Target.getTargets"},
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
            const auto [result, pages] = Found((browser.*endpoint)());
            EXPECT_TRUE(result == S_OK || result == RPC_E_DISCONNECTED) << method << shape;
            EXPECT_LE(pages.size(), 2U) << method << shape;
        }
    }
}

TEST(Endpoints, NamedBrowserHasToAnswerOnThisMachine)
{
    FakeBrowser gone({"a"});
    gone.Die();
    const std::pair<std::string, HRESULT> cases[] = {
        {gone.Endpoint(), RPC_E_DISCONNECTED},
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
        EXPECT_EQ(Found(named), std::pair(expected, List_t())) << named;
}

TEST(Endpoints, FolderOfABrowserAndOfAProfile)
{
    const TempHome home;
    const FakeBrowser open({"a"});
    const FakeBrowser asking({"b"}, nullptr, 404);
    const std::pair<std::string, List_t> cases[] = {
        {PortFile(open), {L"a|http://x/a"}},   {PortFile(asking), {L"b|http://x/b"}},
        {PortFile(open) + "-of-another", {}}, // left behind: the port has been given anew
        {"99999\n/devtools/browser/fake", {}}, {"", {}},
    };
    const std::filesystem::path start = std::filesystem::current_path();
    std::filesystem::current_path(home.Folder()); // as a run enters its save folder
    for (const auto& [file, expected] : cases)
    {
        home.Write("data/DevToolsActivePort", file);
        home.Write("data/Default/Preferences", "{}");
        const std::string named = std::filesystem::relative(home.Path("data"), start);
        for (const std::string& folder : {named, home.Path("data/Default"), home.Path("data/Default/")})
            EXPECT_EQ(Found(folder), std::pair(expected.empty() ? RPC_E_DISCONNECTED : S_OK, expected)) << file;
    }
    std::filesystem::current_path(start);
}

TEST(Endpoints, FirefoxProfile)
{
    const TempHome home;
    int sessions = 0;
    const FakeBrowser browser({"a"}, [&](const QJsonObject& request, const FakeBrowser::Send& send) {
        sessions -= MethodOf(request) == "session.end" ? 1 : 0;
        if (MethodOf(request) != "session.new")
            return false;
        EXPECT_EQ(++sessions, 1) << "the one before was not given back";
        send(FakeBrowser::Reply(request, {{"capabilities", QJsonObject{{"moz:profile", "/sandboxed/x.default"}}}}));
        return true;
    });
    const std::string port = std::to_string(browser.Port());
    const struct
    {
        const char* profile;
        std::string host, port;
        HRESULT expected;
    } cases[] = {
        {"another", R"("127.0.0.1")", port, RPC_E_DISCONNECTED}, // was given anew
        {"x.default", R"("127.0.0.1")", port, S_OK},
        {"x.default/", R"("localhost")", port, S_OK},
        {"x.default", R"("192.0.2.1")", port, E_INVALIDARG},
        {"x.default", "7", port, E_INVALIDARG},
        {"x.default", R"("127.0.0.1")", '"' + port + '"', RPC_E_DISCONNECTED},
        {"x.default", R"("127.0.0.1")", "1e9", RPC_E_DISCONNECTED},
        {"x.default", std::string(9000, ' ') + R"("127.0.0.1")", port, RPC_E_DISCONNECTED},
        {"x.default", "", port, RPC_E_DISCONNECTED},
    };
    for (const auto& [profile, address, number, expected] : cases)
    {
        home.Write(std::string(profile) + "/WebDriverBiDiServer.json",
                   R"({"ws_host": )" + address + R"(, "ws_port": )" + number + "}");
        EXPECT_EQ(Found(home.Path(profile)), std::pair(expected, expected == S_OK ? List_t{kThree[0]} : List_t()))
            << profile << address << number;
    }
}

TEST(Endpoints, PipeInThePlaceOfAFileKeepsNobodyWaiting)
{
    const TempHome home;
    home.Write("chromium/Local State", "{}");
    home.Write("firefox/prefs.js", "");
    for (const char* pipe : {"chromium/DevToolsActivePort", "firefox/WebDriverBiDiServer.json"})
    {
        ASSERT_EQ(mkfifo(home.Path(pipe).c_str(), 0600), 0);
        const std::string folder = std::filesystem::path(home.Path(pipe)).parent_path();
        EXPECT_EQ(Found(folder), std::pair(RPC_E_DISCONNECTED, List_t())) << pipe;
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
    home.Write(".config/chromium/DevToolsActivePort", PortFile(first));
    home.Write(".config/vivaldi/DevToolsActivePort", "1\n/devtools/browser/left-behind");
    home.Write(".var/app/org.chromium.Chromium/config/chromium/DevToolsActivePort", PortFile(second));
    home.Write(".mozilla/firefox/x.default/WebDriverBiDiServer.json",
               R"({"ws_host": "127.0.0.1", "ws_port": )" + std::to_string(third.Port()) + "}");
    home.Write("snap/firefox/common/.mozilla/firefox/y/WebDriverBiDiServer.json",
               R"({"ws_host": "::1", "ws_port": 1})");
    EXPECT_EQ(List(windows), kThree);
}

} // namespace

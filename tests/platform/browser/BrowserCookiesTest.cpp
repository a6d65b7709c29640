#include "tests/platform/browser/Collection.h"
#include "tests/platform/browser/FakeBrowser.h"

#include "platform/internet/Cookies_p.h"

#include <gtest/gtest.h>

#include <atomic>

namespace
{

// Replies to the request for the cookies with a text of JSON.
FakeBrowser::Behaviour Replying(const QString& text)
{
    return [text](const QJsonObject& request, const FakeBrowser::Send& send) {
        if (request.value("method") != "Storage.getCookies")
            return false;
        send(R"({"id": )" + QString::number(request.value("id").toInt()) + ", " + text + "}");
        return true;
    };
}

FakeBrowser::Behaviour WithCookies(const QString& cookies)
{
    return Replying(R"("result": {"cookies": [)" + cookies + "]}");
}

QString CookieOf(const char* name, const char* domain, const QString& more = {})
{
    return QString(R"({"name": "%1", "value": "v", "domain": "%2", "path": "/", "expires": -1, "secure": false%3})")
        .arg(name, domain, more);
}

// "name=value@domain/path" of what goes to a host.
std::string Found(const std::string& host, std::string& browser)
{
    std::string all;
    for (const Cookie& cookie : CookieSource()->Find(host, browser))
        all += cookie.name + "=" + cookie.value + "@" + (cookie.hostOnly ? "" : ".") + cookie.domain + cookie.path +
               (cookie.secure ? " secure" : "") + (cookie.expires != 0 ? " " + std::to_string(cookie.expires) : "") +
               "|";
    return all;
}

std::string Found(const std::string& host)
{
    std::string browser;
    return Found(host, browser);
}

TEST(BrowserCookies, TakesWhatMayGoAndSurvivesTheRest)
{
    const auto ofX = [](const QString& more) { return CookieOf("n", "x", more); };
    const std::pair<QString, const char*> rows[] = {
        {CookieOf("n", "x"), "n=v@x/|"},
        {CookieOf("n", ".x"), "n=v@.x/|"},
        {CookieOf("n", "y") + "," + CookieOf("n", ".xx") + "," + CookieOf("n", ""), ""},
        {ofX(R"(, "sameSite": "Lax")") + "," + ofX(R"(, "sameSite": "None")"), "n=v@x/|n=v@x/|"},
        {ofX(R"(, "sameSite": "Strict")"), ""},
        {ofX(R"(, "partitionKey": {"topLevelSite": "http://x"})") + "," + ofX(R"(, "partitionKey": "http://x")") + "," +
             ofX(R"(, "partitionKeyOpaque": true)"),
         ""},
        {ofX(R"(, "secure": true)") + "," + ofX(R"(, "sourceScheme": "Secure")") + "," + ofX(R"(, "secure": "no")"),
         "n=v@x/ secure|n=v@x/ secure|n=v@x/ secure|"},
        {ofX(R"(, "sourceScheme": "NonSecure", "expires": 1790000000.75)"), "n=v@x/ 1790000000|"},
        {ofX(R"(, "expires": 0.5)") + "," + ofX(R"(, "expires": 1e300)"), "n=v@x/ 1|n=v@x/ 1000000000000000|"},
        {R"(5, null, "n", [], {}, {"domain": "x"}, {"name": "n", "value": 7, "domain": "x"},)" +
             ofX(R"(, "expires": "never")") + "," + ofX(R"(, "name": null)") + "," + CookieOf("last", "x"),
         "last=v@x/|"},
    };
    const auto find = [](const FakeBrowser::Behaviour& behaviour) {
        const FakeBrowser browser({"a"}, behaviour);
        const Registered registered(browser.Endpoint());
        Opened();
        return Found("x");
    };
    for (const auto& [cookies, found] : rows)
        EXPECT_EQ(find(WithCookies(cookies)), found) << cookies.toStdString();
    for (const char* text : {R"("result": {"cookies": {"name": "n"}})", R"("result": {"cookies": 7})",
                             R"("result": [])", R"("error": {"code": -32601})", R"("result": null)"})
        EXPECT_EQ(find(Replying(text)), "") << text;
}

TEST(BrowserCookies, AreThoseOfTheFirstBrowserThatHasOne)
{
    const FakeBrowser first({"a"}, WithCookies(CookieOf("one", ".x.example")));
    const FakeBrowser second({"b"}, WithCookies(CookieOf("two", ".example") + "," + CookieOf("two", "y.example")));
    const Registered registered(first.Endpoint() + "," + second.Endpoint());
    // Nothing is connected for their sake.
    EXPECT_EQ(Found("x.example"), "");
    EXPECT_EQ(first.Heads().size() + second.Heads().size(), 0U);
    Opened();
    EXPECT_TRUE(WaitUntil([] { return !Found("x.example").empty(); }));
    std::string browser;
    EXPECT_EQ(Found("a.x.example", browser), "one=v@.x.example/|");
    EXPECT_EQ(Found("y.example", browser), ""); // a redirect stays with the browser
    browser.clear();
    EXPECT_EQ(Found("y.example", browser), "two=v@.example/|two=v@y.example/|");
    EXPECT_EQ(Found("x.example", browser), "two=v@.example/|");
}

TEST(BrowserCookies, OfASilentBrowserAreMissed)
{
    std::atomic<int> asked{0};
    const FakeBrowser browser({"a"}, [&asked](const QJsonObject& request, const FakeBrowser::Send&) {
        const bool isForCookies = request.value("method") == "Storage.getCookies";
        asked += isForCookies ? 1 : 0;
        return isForCookies;
    });
    const Registered registered(browser.Endpoint());
    Opened();
    EXPECT_EQ(Found("x"), "");
    EXPECT_EQ(asked, 1);
}

} // namespace

// Storage.getCookies, shortened:
//
//   {"cookies": [{"name": "sid", "value": "4F1C…", "domain": ".example.org", "path": "/", "expires": 1790000000.25,
//                 "secure": true, "httpOnly": true, "sameSite": "Lax", "sourceScheme": "Secure",
//                 "partitionKey": {…}}]}
//
// A domain without a dot before it is that of one host; `expires` is -1 for the session; `sameSite` and `partitionKey`
// are left out where there are none; a partition of a site without a name, as that of a data: page, has
// "partitionKeyOpaque": true instead. The whole of a profile costs 30 ms for 3,000 cookies. Network.getCookies would
// tell those of one address, but of the profile of the page that is asked, which may be a private one, and sleeping
// pages do not answer.
#include "platform/browser/devtools/Cookies_p.h"

#include <QJsonArray>

#include <algorithm>

namespace browsing::devtools
{
namespace
{

constexpr double kForEver = 1e15; // what a browser keeps ends long before, and a cookie file can say it

// Strict ones go only within their own site, and partitioned ones only below the site of the page: which page an
// address comes from is not known where it is asked for.
bool MayGo(const QJsonObject& cookie)
{
    return cookie.value("name").isString() && cookie.value("value").isString() && cookie.value("expires").isDouble() &&
           cookie.value("sameSite").toString() != "Strict" && !cookie.contains("partitionKey") &&
           !cookie.value("partitionKeyOpaque").toBool();
}

std::int64_t EndOf(const QJsonObject& cookie)
{
    const double expires = cookie.value("expires").toDouble();
    return expires < 0 ? 0 : static_cast<std::int64_t>(std::clamp(expires, 1.0, kForEver));
}

Cookie ReadCookie(const QJsonObject& cookie)
{
    const std::string domain = cookie.value("domain").toString().toStdString();
    const bool isWide = domain.starts_with('.');
    // An address of https is asked for over http first. What was set over https does not go there, as if it were
    // marked.
    const bool isSecure = cookie.value("secure").toBool(true) || cookie.value("sourceScheme").toString() == "Secure";
    return {.name = cookie.value("name").toString().toStdString(),
            .value = cookie.value("value").toString().toStdString(),
            .domain = domain.substr(isWide ? 1 : 0),
            .hostOnly = !isWide,
            .path = cookie.value("path").toString().toStdString(),
            .secure = isSecure,
            .expires = EndOf(cookie)};
}

} // namespace

Command AskForCookies()
{
    return {"Storage.getCookies", {}, {}};
}

std::vector<Cookie> CookiesOf(const QJsonObject& reply)
{
    std::vector<Cookie> cookies;
    for (const QJsonValue& value : reply.value("cookies").toArray())
    {
        const QJsonObject cookie = value.toObject();
        if (MayGo(cookie))
            cookies.push_back(ReadCookie(cookie));
    }
    return cookies;
}

} // namespace browsing::devtools

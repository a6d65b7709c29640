// The browsers' cookies as those of the internet client.
#pragma once

#include "platform/browser/BrowserList_p.h"
#include "platform/browser/Page_p.h"
#include "platform/internet/Cookies.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace browsing
{

// Asks the browsers that are connected, and connects to none. The first one, in the order of the window list, that has
// a cookie for a host answers alone. One that does not answer has none.
class BrowserCookies : public ICookieSource
{
public:
    explicit BrowserCookies(std::shared_ptr<BrowserList> browsers);

    std::vector<Cookie> Find(const std::string& host, std::string& browser) override;

private:
    struct Jar
    {
        std::string browser; // its address
        std::vector<Cookie> cookies;
    };

    void Refresh();
    std::vector<Cookie> FindInJars(const std::string& host, std::string& browser) const;

    const std::shared_ptr<BrowserList> m_browsers;
    std::mutex m_mutex;                               // of all below
    std::map<std::shared_ptr<Browser>, Page> m_asked; // what is known of each browser's answering
    std::vector<Jar> m_jars;
    Clock::time_point m_refreshAt; // the epoch: never read
};

} // namespace browsing

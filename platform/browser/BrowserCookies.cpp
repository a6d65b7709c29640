#include "platform/browser/BrowserCookies_p.h"

#include <algorithm>
#include <iterator>

namespace browsing
{
namespace
{

// A run asks for one address after the other; the browsers are asked again after this time.
constexpr std::chrono::seconds kAge(2);
constexpr std::chrono::seconds kSilenceLimit(2);

bool IsFor(const Cookie& cookie, const std::string& host)
{
    const std::string& domain = cookie.domain;
    if (domain.empty() || !host.ends_with(domain))
        return false;
    return host.size() == domain.size() || (!cookie.hostOnly && host[host.size() - domain.size() - 1] == '.');
}

} // namespace

BrowserCookies::BrowserCookies(std::shared_ptr<BrowserList> browsers) : m_browsers(std::move(browsers))
{}

std::vector<Cookie> BrowserCookies::Find(const std::string& host, std::string& browser)
{
    try
    {
        const std::lock_guard lock(m_mutex);
        if (Clock::now() >= m_refreshAt)
            Refresh();
        return FindInJars(host, browser);
    }
    catch (const std::exception&)
    {
        return {};
    }
}

std::vector<Cookie> BrowserCookies::FindInJars(const std::string& host, std::string& browser) const
{
    std::vector<Cookie> found;
    for (const Jar& jar : m_jars)
    {
        if (!browser.empty() && browser != jar.browser)
            continue;
        std::ranges::copy_if(jar.cookies, std::back_inserter(found),
                             [&host](const Cookie& cookie) { return IsFor(cookie, host); });
        if (found.empty())
            continue;
        browser = jar.browser;
        break;
    }
    return found;
}

// All are asked before the first is waited for. A cancelled wait says nothing of the browsers, so the next caller asks.
void BrowserCookies::Refresh()
{
    m_jars.clear();
    const std::vector<std::shared_ptr<Browser>> browsers = m_browsers->Connected();
    for (const auto& browser : browsers)
    {
        const Command request = browser->CookieRequest();
        const auto connection = request.method.isEmpty() ? nullptr : browser->OpenConnection();
        if (connection)
            m_asked.try_emplace(browser, kSilenceLimit).first->second.Ask(*connection, request);
    }
    for (const auto& browser : browsers)
    {
        const Reply reply = m_asked.try_emplace(browser, kSilenceLimit).first->second.Answer();
        if (reply.result == E_ABORT)
            return;
        if (SUCCEEDED(reply.result))
            m_jars.push_back({browser->SocketUrl(), browser->CookiesOf(reply.value)});
    }
    m_refreshAt = Clock::now() + kAge;
}

} // namespace browsing

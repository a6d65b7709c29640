#include "bench/BrowserPages.h"

#include "bench/BareProtocol.h"
#include "bench/Bench.h"

#include <algorithm>
#include <functional>
#include <regex>
#include <thread>

namespace
{

using namespace std::chrono_literals;

constexpr const char* kLoaded = "loaded";

void WaitFor(const std::function<bool()>& condition, const char* what)
{
    const auto deadline = Clock::now() + 60s;
    while (!condition())
    {
        Expect(Clock::now() < deadline, what);
        std::this_thread::sleep_for(20ms);
    }
}

// The browser's own page for its developers has to be allowed before it opens; the button turns that on and off.
constexpr const char* kAllow = "(() => { const button = document.querySelector('chrome-urls-app')?.shadowRoot"
                               "?.querySelector('cr-button'); if (button?.textContent.includes('Enable')) "
                               "button.click(); return !!button; })()";

std::string DiscardScript(const std::string& part, int count)
{
    return "(() => { const rows = [...document.querySelector('discards-main')?.shadowRoot"
           "?.querySelector('discards-tab')?.shadowRoot?.querySelectorAll('tbody tr') ?? []]"
           ".filter(row => row.textContent.includes('" +
           part + "')); if (rows.length < " + std::to_string(count) +
           ") return false; for (const row of rows) [...row.querySelectorAll('[is=action-link]')]"
           ".find(action => action.textContent.includes('Urgent Discard')).click(); return true; })()";
}

// Opens one of the browser's own pages for as long as an expression is not true in it.
void DoInPage(RealBrowser& browser, const std::string& url, const std::string& expression)
{
    const std::string target = browser.OpenPage(url);
    BareProtocol page(browser, target);
    WaitFor([&] { return page.Evaluate(expression).find("\"value\":true") != std::string::npos; }, url.c_str());
    browser.ClosePage(target);
}

} // namespace

std::string BrowserPages::PictureOf(const std::string& rest)
{
    constexpr char kGif[] = "GIF89a\1\0\1\0\x80\0\0\xFF\xFF\xFF\0\0\0!\xF9\4\1\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;";
    return std::string(kGif, sizeof kGif - 1) + rest;
}

std::string BrowserPages::PageOf(int images, int links)
{
    std::string html;
    for (int image = 0; image < images; ++image)
        html += "<img src='/one.gif#" + std::to_string(image) + "'>";
    for (int link = 0; link < links; ++link)
        html += "<a href='/music/" + std::to_string(link) + ".mp3'>music</a>";
    return html;
}

std::string BrowserPages::Url(const std::string& path) const
{
    return "http://127.0.0.1:" + std::to_string(m_server.Port()) + path;
}

std::string BrowserPages::Open(const std::string& path, const std::string& html)
{
    m_server.Serve("/one.gif", PictureOf(""));
    m_server.Serve(path, "<!doctype html><title>-</title><script>onload = () => document.title = '" +
                             std::string(kLoaded) + "'</script>" + html);
    const std::string target = m_browser.OpenPage(Url(path));
    const auto isLoaded = [&] {
        const auto targets = Targets();
        const auto found = std::ranges::find(targets, target, &Target::id);
        return found != targets.end() && found->title == kLoaded;
    };
    WaitFor(isLoaded, "a page does not load");
    BareProtocol(m_browser, target).Evaluate("document.body.offsetHeight"); // laid out, too
    return target;
}

void BrowserPages::Close(const std::string& part)
{
    for (const std::string& target : TargetsOf(part))
        m_browser.ClosePage(target);
    WaitFor([&] { return TargetsOf(part).empty(); }, "a page does not close");
}

void BrowserPages::PutToSleep(const std::string& part, int count)
{
    const auto awake = TargetsOf(part);
    DoInPage(m_browser, "chrome://chrome-urls/", kAllow);
    DoInPage(m_browser, "chrome://discards/", DiscardScript(part, count));
    // A page that goes to sleep becomes another target.
    const auto asleep = [&] {
        const auto now = TargetsOf(part);
        return now.size() == awake.size() && std::ranges::find_first_of(now, awake) == now.end();
    };
    WaitFor(asleep, "the pages do not go to sleep");
}

std::vector<BrowserPages::Target> BrowserPages::Targets() const
{
    static const std::regex pattern(R"x("targetId":"(\w+)","type":"page","title":"([^"]*)","url":"([^"]*)")x");
    const std::string reply = BareProtocol(m_browser).Call("Target.getTargets");
    std::vector<Target> targets;
    for (std::sregex_iterator found(reply.begin(), reply.end(), pattern), end; found != end; ++found)
        targets.push_back({(*found)[1], (*found)[2], (*found)[3]});
    return targets;
}

std::vector<std::string> BrowserPages::TargetsOf(const std::string& part) const
{
    std::vector<std::string> ids;
    for (const Target& target : Targets())
    {
        if (target.url.find(part) != std::string::npos)
            ids.push_back(target.id);
    }
    return ids;
}

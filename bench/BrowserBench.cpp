// What comes from a running browser: images that it holds, a page with many elements, and many pages of which some are
// asleep. The browser is a real one, and so is the sleep.

#include "base/UrlList.h"
#include "bench/BareProtocol.h"
#include "bench/BareRun.h"
#include "bench/Bench.h"
#include "bench/BrowserPages.h"
#include "bench/KeptHome.h"
#include "harvest/BrowserWindows.h"
#include "harvest/PageHarvest.h"
#include "harvest/PageWalk.h"
#include "resources/Resources.h"

#include "platform/browser/Browsers.h"
#include "platform/com/Com.h"
#include "platform/testing/Robot.h"
#include "platform/window/WinApp.h"

#include <algorithm>
#include <cstdlib>

namespace
{

constexpr int kImages = 2000;
constexpr std::size_t kImageSize = 10 * 1024;
constexpr int kElements = 20000;
constexpr int kAwake = 95;
constexpr int kAsleep = 5;
constexpr int kElementsOfPage = 20;

CWinApp theApp;

// The program's connections to the browser, made anew.
class Connected
{
public:
    explicit Connected(const RealBrowser& browser)
    {
        setenv("VANTROY_BROWSER", browser.DataFolder().c_str(), 1);
        RegisterBrowsers();
    }
    ~Connected()
    {
        CloseBrowsers();
    }
};

// The walk of a run over pages, which goes no further.
class WalkOwner final : public IHarvestOwner
{
public:
    explicit WalkOwner(const std::vector<std::string>& pages)
    {
        m_run.m_setting.m_bMp3 = 1;
        for (const std::string& page : pages)
            m_pages.AddTail(page);
    }
    CDownloadRun& Run() override
    {
        return m_run;
    }
    const CUrlList& PageUrls() const override
    {
        return m_pages;
    }
    void OnNothingCollected() override
    {}
    void OnRunEnds() override
    {}

private:
    BareRun m_run;
    CUrlList m_pages;
};

CUrlList Walk(const std::vector<std::string>& pages)
{
    WalkOwner owner(pages);
    CUrlList urls;
    Expect(WalkPages(owner, urls), "no window collection");
    return urls;
}

// A page of images, which is opened anew for each round: what the program has copied of a page, it has. All copies stay
// until the end, for the reason that KeptHome tells.
class ImagePages : public BrowserPages
{
public:
    ImagePages() : m_connected(Browser())
    {
        for (int image = 0; image < kImages; ++image)
        {
            const std::string path = "/" + std::to_string(image) + ".gif";
            Server().Serve(path, PictureOf(std::string(kImageSize, 'x') + path));
            m_html += "<img src='" + path + "'>";
            m_urls.push_back(Url(path));
        }
    }
    void OpenAnew()
    {
        Close("/images");
        m_target = Open("/images", m_html);
    }
    const std::string& Target() const
    {
        return m_target;
    }
    const std::vector<std::string>& Urls() const
    {
        return m_urls;
    }

private:
    const Connected m_connected;
    std::string m_html;
    std::string m_target;
    std::vector<std::string> m_urls;
};

double TimeRun(const ImagePages& page)
{
    const TempHome& home = KeptHome();
    BareRun run;
    SetSaveFolder(run, home);
    const CUrlList urls = Walk({page.Url("/images")});
    Expect(urls.GetCount() == kImages, "the walk did not find every image");
    const double seconds = TimeOf([&] { run.DownloadFiles(urls); });
    ExpectSaved(home, kImages);
    return seconds;
}

double TimeBareLoop(const ImagePages& page)
{
    BareProtocol protocol(page.Browser(), page.Target());
    protocol.Call("Page.enable");
    return TimeOf([&] {
        for (const std::string& url : page.Urls())
        {
            const std::string reply = protocol.Call("Page.getResourceContent",
                                                    R"({"frameId":")" + page.Target() + R"(","url":")" + url + R"("})");
            Expect(reply.size() > kImageSize, "the browser does not hold an image");
        }
    });
}

std::ptrdiff_t ImageRequests(const HttpTestServer& server)
{
    return std::ranges::count_if(server.Requests(),
                                 [](const std::string& line) { return line.find(".gif ") != line.npos; });
}

void MeasureCopies(ImagePages& page)
{
    page.OpenAnew();
    const auto before = ImageRequests(page.Server());
    Record("vantroy", TimeRun(page));
    Record("requests at the server", static_cast<double>(ImageRequests(page.Server()) - before));
    Record("bare loop", TimeBareLoop(page));
}

struct LongPage : BrowserPages
{
    const std::string target = Open("/many", PageOf(kElements, kElements));
};

void MeasureHarvest(LongPage& page)
{
    {
        const Connected connected(page.Browser());
        Walk({}); // connects
        Record("vantroy", TimeOf([&page] {
                   Expect(Walk({page.Url("/many")}).GetCount() == 2 * kElements, "the walk missed elements");
               }));
    }
    BareProtocol protocol(page.Browser(), page.target);
    Record("bare evaluate", TimeOf([&protocol] {
               const std::string reply = protocol.Evaluate("[[...document.images].map(i => [i.currentSrc, i.width, "
                                                           "i.height]), [...document.links].map(a => [a.href, true])]");
               Expect(reply.size() > std::size_t{2} * kElements, "the browser does not tell");
           }));
}

// Pages that stay awake, and their addresses.
class ManyPages : public BrowserPages
{
public:
    ManyPages()
    {
        for (int number = 0; number < kAwake; ++number)
        {
            const std::string path = "/page" + std::to_string(number);
            Open(path, PageOf(kElementsOfPage, kElementsOfPage));
            m_urls.push_back(Url(path));
        }
    }
    const std::vector<std::string>& Urls() const
    {
        return m_urls;
    }

private:
    std::vector<std::string> m_urls;
};

// Lists the pages as the main window does, and harvests all of them.
void ListAndHarvest(const std::vector<std::string>& pages)
{
    const auto windows = OpenShellWindows();
    Expect(bool(windows), "no window collection");
    int listed = 0;
    for (LONG index = 0, count = CountWindows(*windows.Get()); index < count; ++index)
    {
        if (const auto document = DocumentOfWindow(*windows.Get(), index))
            listed += !ReadText(*document.Get(), &IHTMLDocument2::get_URL).empty();
    }
    Expect(listed >= kAwake, "the list missed pages");
    Expect(Walk(pages).GetCount() == std::size_t{2} * kAwake * kElementsOfPage, "the walk missed elements");
}

// The first time with the sleepers waits for them, as long as the limit of one page; from then on they are known.
void MeasureListing(const ManyPages& pages, const std::string& series)
{
    const Connected connected(pages.Browser());
    Record(series + ", first", TimeOf([&pages] { ListAndHarvest(pages.Urls()); }));
    Record(series + ", again", TimeOf([&pages] { ListAndHarvest(pages.Urls()); }));
}

void MeasureSleepers(ManyPages& pages)
{
    MeasureListing(pages, "awake");
    for (int number = 0; number < kAsleep; ++number)
        pages.Open("/asleep" + std::to_string(number), BrowserPages::PageOf(kElementsOfPage, kElementsOfPage));
    pages.PutToSleep("/asleep", kAsleep);
    MeasureListing(pages, "asleep");
    pages.Close("/asleep");
}

} // namespace

int main(int argc, char** argv)
{
    StartTestDesktop(argc, argv);
    AfxSetResources(VantroyResources());
    CoInitialize(nullptr);
    const int status = RunLines(
        argc, argv,
        {{"copies", With(MeasureCopies)}, {"harvest", With(MeasureHarvest)}, {"sleepers", With(MeasureSleepers)}});
    CoUninitialize();
    StopTestDesktop();
    return status;
}

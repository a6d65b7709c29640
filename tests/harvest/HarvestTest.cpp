#include "harvest/PageHarvest.h"
#include "tests/download/TestRun.h"

#include "platform/com/Unknown.h"
#include "platform/testing/MemoryBrowser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

using Urls = std::vector<std::string>;

namespace
{

// A run whose walk is what counts: it stops before the fetch.
class TestOwner final : public TestRun, public IHarvestOwner
{
public:
    // Runs the worker to its end and gives its exit code.
    int Harvest()
    {
        UINT code = 0;
        std::thread worker([&code, this] { code = HarvestPagesProc(static_cast<IHarvestOwner*>(this)); });
        worker.join();
        return static_cast<int>(code);
    }

    CUrlList m_pages;
    Urls m_taken;
    Urls m_log; // "page ADDRESS", "end", "nothing", "collected", "over"

private:
    CDownloadRun& Run() override
    {
        return *this;
    }
    const CUrlList& PageUrls() const override
    {
        return m_pages;
    }
    void OnHarvestBegins() override
    {
        m_bRunning = 1;
    }
    void OnPageBegins(const std::string& pageUrl) override
    {
        m_log.push_back("page " + pageUrl);
    }
    void OnUrlTaken(const std::string& url) override
    {
        m_taken.push_back(url);
    }
    void OnPageEnds() override
    {
        m_log.push_back("end");
    }
    void OnNothingCollected() override
    {
        m_log.push_back("nothing");
    }
    void OnCollected() override
    {
        m_log.push_back("collected");
        m_bRunning = 0;
    }
    void OnRunEnds() override
    {
        m_log.push_back("over");
    }
};

using Kind = MemoryWindow::Kind;

MemoryWindow Page(const wchar_t* url, std::vector<MemoryImage> images, std::vector<std::wstring> links = {})
{
    return {Kind::Page, url, L"title", std::move(images), std::move(links)};
}

class Harvest : public testing::Test
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(m_browser.LiveObjects(), 0);
    }

    MemoryBrowser m_browser;
    TestOwner m_owner;
};

} // namespace

TEST(HarvestRules, TakesLinksByTheirLastFourBytes)
{
    const struct
    {
        const char* href;
        bool mp3, flash, taken;
    } cases[] = {
        {"http://h/c.MP3", true, false, true},
        {"http://h/c.mp3", false, true, false},
        {"ftp://h/e.SwF", false, true, true},
        {"http://h/e.swf", true, false, false},
        {"http://h/c.mp3?x", true, true, false},
        {".mp3", true, true, false},
        {"a.mp3", true, true, true},
        {"", true, true, false},
    };
    for (const auto& [href, mp3, flash, taken] : cases)
        EXPECT_EQ(IsMediaLink(href, mp3, flash), taken) << href;
}

TEST(HarvestRules, MatchesAPageByItsAddressOrWithoutItsLastSlash)
{
    CUrlList pages;
    pages.AddTail("http://plain");
    pages.AddTail("http://slash/");
    const std::pair<const char*, bool> cases[] = {
        {"http://plain", true},  {"http://plain/", true}, {"http://plain//", false}, {"http://slash/", true},
        {"http://slash", false}, {"HTTP://plain", false}, {"http://plain#", false},  {"", false},
    };
    for (const auto& [url, listed] : cases)
        EXPECT_EQ(IsPageListed(pages, url), listed) << url;
}

TEST_F(Harvest, CollectsInTheOrderOfWindowsImagesAndLinks)
{
    m_browser.SetWindows(
        {{Kind::Folder, L"file:///", L"", {}, {}},
         Page(L"http://p/1/", {{L"a"}, {L""}, {L"b"}, {L"a"}}, {L"http://h/c.mp3", L"d.zip", L"e.swf"}),
         {Kind::Sleeping, L"http://p/1", L"", {}, {}},
         {Kind::NotHtml, L"http://p/1", L"", {}, {}},
         {Kind::NoPage, L"", L"", {}, {}},
         Page(L"http://other", {{L"x"}}),
         Page(L"http://p/2", {{std::wstring(5000, L'x')}}, {L"g.mp3"}),
         Page(L"http://p/2", {{L"图片.jpg"}, {{L"z/\0y", 4}}})});
    m_owner.m_pages.AddTail("http://p/1");
    m_owner.m_pages.AddTail("http://p/2");
    m_owner.m_setting.m_bMp3 = 1;
    EXPECT_EQ(m_owner.Harvest(), 0);
    EXPECT_EQ(m_owner.m_taken,
              (Urls{"a", "b", "a", "http://h/c.mp3", std::string(5000, 'x'), "g.mp3", "图片.jpg", "z/"}));
    EXPECT_EQ(m_owner.m_log, (Urls{"page http://p/1/", "end", "page http://p/2", "end", "page http://p/2", "end",
                                   "collected", "over"}));
}

TEST_F(Harvest, AsksOnlyForWhatTheSettingsWant)
{
    m_browser.SetWindows({Page(L"p", {{L"a", 640, 480}, {L"b", 640, 481}}, {L"c.mp3", L"d.swf"})});
    m_owner.m_pages.AddTail("p");
    const auto asked = [this](const char* call) { return std::ranges::count(m_browser.Calls(), call); };
    const auto taken = [this] {
        m_owner.m_taken.clear();
        EXPECT_EQ(m_owner.Harvest(), 0);
        return m_owner.m_taken;
    };
    EXPECT_EQ(taken(), (Urls{"a", "b"}));
    EXPECT_EQ(asked("IHTMLDocument2::get_links"), 0);
    m_owner.m_setting.m_bLimitResolution = 1;
    EXPECT_EQ(taken(), (Urls{"a", "b"})) << "an empty list leaves nothing out";
    m_owner.m_setting.m_resolutions.Set({{640, 480}, {1, 1}});
    EXPECT_EQ(taken(), Urls{"b"});

    m_owner.m_log.clear();
    m_owner.m_setting.m_resolutions.Set({{640, 480}, {640, 481}});
    EXPECT_EQ(m_owner.Harvest(), 3);
    EXPECT_EQ(m_owner.m_log, (Urls{"page p", "end", "nothing", "over"}));

    const auto before = asked("IHTMLDocument2::get_images");
    m_owner.m_setting.m_bImages = 0;
    m_owner.m_setting.m_bFlash = 1;
    EXPECT_EQ(taken(), Urls{"d.swf"});
    EXPECT_EQ(asked("IHTMLDocument2::get_images"), before);
}

TEST_F(Harvest, StopsAtTheNextElementAndKeepsWhatItHas)
{
    m_browser.SetWindows({Page(L"p", {{L"a"}, {L"b"}, {L"c"}}), Page(L"p", {{L"d"}})});
    m_owner.m_pages.AddTail("p");
    int seen = 0;
    m_browser.SetHook([&seen, this](const std::string& call) {
        if (call == "IHTMLImgElement::get_src" && ++seen == 2)
            m_owner.m_bRunning = 0;
    });
    EXPECT_EQ(m_owner.Harvest(), 0);
    EXPECT_EQ(m_owner.m_taken, (Urls{"a", "b"}));
}

TEST_F(Harvest, SurvivesEveryFailingCall)
{
    const struct
    {
        const char* call;
        HRESULT result;
        int exitCode;
        Urls taken; // of the two images and one link of the first page, and the image of the second
    } cases[] = {
        {"CoCreateInstance", E_FAIL, 1, {}},
        {"OleRun", E_FAIL, 1, {}},
        {"QueryInterface IShellWindows", E_NOINTERFACE, 1, {}},
        {"IShellWindows::get_Count", E_FAIL, 1, {}},
        {"IShellWindows::Item", RPC_E_DISCONNECTED, 1, {}},
        {"QueryInterface IWebBrowser2", E_NOINTERFACE, 0, {"d"}},
        {"QueryInterface IWebBrowser2", E_FAIL, 1, {}},
        {"IWebBrowser2::get_Document", E_FAIL, 0, {"d"}},
        {"QueryInterface IHTMLDocument2", E_FAIL, 0, {"d"}},
        {"IHTMLDocument2::get_URL", E_FAIL, 0, {"d"}},
        {"IHTMLDocument2::get_URL", E_OUTOFMEMORY, 1, {}},
        {"IHTMLDocument2::get_images", E_FAIL, 0, {"c.mp3", "d"}},
        {"IHTMLDocument2::get_links", E_FAIL, 0, {"a", "b", "d"}},
        {"IHTMLElementCollection::get_length", E_FAIL, 0, {"c.mp3", "d"}},
        {"IHTMLElementCollection::item", E_FAIL, 0, {"b", "c.mp3", "d"}},
        {"QueryInterface IHTMLImgElement", E_NOINTERFACE, 0, {"b", "c.mp3", "d"}},
        {"IHTMLImgElement::get_src", E_FAIL, 0, {"b", "c.mp3", "d"}},
        {"IHTMLImgElement::get_src", E_OUTOFMEMORY, 1, {}},
        {"IHTMLImgElement::get_width", E_FAIL, 0, {"a", "b", "c.mp3", "d"}},
        {"IHTMLImgElement::get_height", E_FAIL, 0, {"a", "b", "c.mp3", "d"}},
        {"QueryInterface IHTMLAnchorElement", E_NOINTERFACE, 0, {"a", "b", "d"}},
        {"IHTMLAnchorElement::get_href", E_FAIL, 0, {"a", "b", "d"}},
    };
    for (const auto& c : cases)
    {
        TestOwner owner;
        owner.m_pages.AddTail("p");
        owner.m_setting.m_bMp3 = 1;
        m_browser.SetWindows({Page(L"p", {{L"a"}, {L"b"}}, {L"c.mp3"}), Page(L"p", {{L"d"}})});
        m_browser.Fail(c.call, c.result, 1);
        EXPECT_EQ(owner.Harvest(), c.exitCode) << c.call;
        EXPECT_EQ(owner.m_taken, c.taken) << c.call;
        EXPECT_EQ(owner.m_log.back(), "over") << c.call;
        EXPECT_EQ(std::count(owner.m_log.begin(), owner.m_log.end(), "over"), 1) << c.call;
        EXPECT_EQ(m_browser.LiveObjects(), 0) << c.call;
    }
    EXPECT_EQ(static_cast<int>(HarvestPagesProc(nullptr)), -2);
}

#include "harvest/BrowserHints.h"

#include "resources/Resources.h"

#include "platform/window/Resource.h"

#include <gtest/gtest.h>

TEST(BrowserHints, NameWhatHelps)
{
    AfxSetResources(VantroyResources());
    const BrowserReport open{"Chromium", "/home/ada/.config/chromium", BrowserState::Open, 3};
    const BrowserReport asks{"Brave", "/b", BrowserState::AsksUser, 0};
    const BrowserReport taken{"Firefox", "/f", BrowserState::Taken, 0};
    const BrowserReport stale{"http://127.0.0.1:9", "http://127.0.0.1:9", BrowserState::Stale, 0};
    EXPECT_EQ(DescribeBrowsers({open, stale}),
              "Chromium, /home/ada/.config/chromium\n    open; pages: 3\nhttp://127.0.0.1:9\n    was reachable and has "
              "been closed: start it again in the same way, or use vantroy-browser.");
    const std::pair<std::vector<BrowserReport>, const char*> cases[] = {
        {{}, "No browser can be reached."},      {{stale, asks, open}, "The browser has no page open."},
        {{stale, asks}, "The browser asks you"}, {{stale, taken}, "The browser is held by another program."},
        {{taken, asks}, "The browser asks you"}, {{stale}, "No browser can be reached."},
    };
    for (const auto& [reports, begin] : cases)
        EXPECT_TRUE(EmptyListHint(reports).starts_with(begin)) << EmptyListHint(reports);
    EXPECT_TRUE(DescribeBrowsers({}).starts_with("No browser that Vantroy can reach has been used"));
}

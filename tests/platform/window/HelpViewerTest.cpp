#include "platform/shell/HelpViewer.h"

#include "platform/system/Library.h"
#include "platform/testing/RecordingPrograms.h"

#include <gtest/gtest.h>

TEST(HelpViewer, ShowsTheNearestManual)
{
    const TempHome home;
    RegisterHelpViewer(home.Path("share/manual"));
    const auto show = reinterpret_cast<HtmlHelpFunction>(
        GetProcAddress(LoadLibraryA("HHctrl.ocx"), MAKEINTRESOURCEA(kHtmlHelpOrdinal)));
    ASSERT_TRUE(show);
    const std::string file = home.Path("a $(id) \"b\"/name.chm");
    const RecordingPrograms programs(home, {"xdg-open"});
    home.Write("a $(id) \"b\"/name", "no folder");
    EXPECT_EQ(show({}, file.c_str(), HH_DISPLAY_TOPIC, 0), 0u);
    for (const char* manual : {"share/manual", "a $(id) \"b\"/manual", "a $(id) \"b\"/other"})
    {
        const std::string page = std::string(manual) + "/index.html";
        home.Write(page, "");
        const std::string asked = page.find("other") == std::string::npos ? file : home.Path("a $(id) \"b\"/other.chm");
        EXPECT_NE(show({}, asked.c_str(), HH_DISPLAY_TOPIC, 0), 0u);
        EXPECT_EQ(programs.Arguments("xdg-open"), std::vector<std::string>{home.Path(page)});
    }
    EXPECT_EQ(show({}, file.c_str(), HH_DISPLAY_TOPIC + 1, 0), 0u);
    EXPECT_EQ(show({}, nullptr, HH_DISPLAY_TOPIC, 0), 0u);
    EXPECT_FALSE(programs.HasRun("xdg-open"));
    RegisterLibrary(kHelpViewerLibrary, {});
}

#include "platform/shell/HelpViewer.h"

#include "platform/system/Library.h"
#include "platform/testing/RecordingPrograms.h"

#include <gtest/gtest.h>

namespace
{

using Words = std::vector<std::string>;

HtmlHelpFunction Viewer()
{
    const HMODULE library = LoadLibraryA(kHelpViewerLibrary);
    return reinterpret_cast<HtmlHelpFunction>(GetProcAddress(library, MAKEINTRESOURCEA(kHtmlHelpOrdinal)));
}

} // namespace

TEST(HelpViewer, ShowsTheNearestManual)
{
    const TempHome home;
    RegisterHelpViewer(home.Path("share/manual"));
    const HtmlHelpFunction show = Viewer();
    ASSERT_TRUE(show);
    EXPECT_FALSE(GetProcAddress(LoadLibraryA("HHctrl.ocx"), MAKEINTRESOURCEA(15)));
    const std::string file = home.Path("a $(id) \"b\"/name.chm");
    {
        const RecordingPrograms programs(home, {"xdg-open"});
        home.Write("a $(id) \"b\"/name", "no folder");
        EXPECT_EQ(show({}, file.c_str(), HH_DISPLAY_TOPIC, 0), 0u);
        for (const char* manual : {"share/manual", "a $(id) \"b\"/manual", "a $(id) \"b\"/other"})
        {
            const std::string page = std::string(manual) + "/index.html";
            home.Write(page, "");
            const std::string asked =
                page.find("other") == std::string::npos ? file : home.Path("a $(id) \"b\"/other.chm");
            EXPECT_NE(show({}, asked.c_str(), HH_DISPLAY_TOPIC, 0), 0u);
            EXPECT_EQ(programs.Arguments("xdg-open"), Words{home.Path(page)});
        }
        EXPECT_EQ(show({}, file.c_str(), HH_DISPLAY_TOPIC + 1, 0), 0u);
        EXPECT_EQ(show({}, nullptr, HH_DISPLAY_TOPIC, 0), 0u);
        EXPECT_FALSE(programs.HasRun("xdg-open"));
    }
    const TempHome empty;
    const RecordingPrograms none(empty, {});
    EXPECT_EQ(show({}, file.c_str(), HH_DISPLAY_TOPIC, 0), 0u) << "nothing to open it with";
    RegisterLibrary(kHelpViewerLibrary, {});
}

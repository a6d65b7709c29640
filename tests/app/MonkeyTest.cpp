// Whatever a user presses, in whatever order, with a run going on.
#include "AppTest.h"

#include "resources/ResourceIds.h"

#include "platform/testing/RecordingPrograms.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>

namespace
{

int Acts()
{
    const char* const count = getenv("VANTROY_ACTS");
    return count ? std::atoi(count) : 1000;
}

class Monkey : public AppTest
{
protected:
    Monkey() : m_programs(m_home, {"xdg-open"})
    {
        setenv("http_proxy", ("http://127.0.0.1:" + std::to_string(m_server.Port())).c_str(),
               1); // to the update server
        std::vector<MemoryWindow> pages;
        for (const std::string title : {"One", "Two", "Three"})
        {
            std::vector<std::string> images;
            for (int i = 0; i < 40; ++i)
                images.push_back(Served('/' + title + std::to_string(i) + ".jpg", Body(i)));
            pages.push_back(Page(L"http://" + std::to_wstring(pages.size()) + L"/", L"Page", images));
        }
        m_browser.SetWindows(pages);
        m_whenShowing = [] { std::this_thread::sleep_for(std::chrono::milliseconds(1)); };
    }
    ~Monkey() override
    {
        unsetenv("http_proxy");
    }
    // Answers and closes what stands in front of the main window, and then that. It may go at any moment of this, as it
    // may have been closed before.
    void Leave(const Robot& robot) const
    {
        const Robot brief(std::chrono::milliseconds(500));
        int step = 0;
        robot.WaitUntil(
            [&] {
                try
                {
                    const Names windows = brief.Windows();
                    if (windows.empty())
                        return !IsWindow(m_window);
                    if (windows.back() == "Download History" || windows.back() == "Advanced")
                        brief.CloseWindow(windows.back());
                    else
                        brief.Key(++step % 2 ? "Esc" : "Alt+E"); // message boxes have the title of the main window
                }
                catch (const RobotError&)
                {} // gone meanwhile
                return !IsWindow(m_window);
            },
            "the program to leave");
    }
    static std::string Body(int item)
    {
        return std::string(1000 * static_cast<std::size_t>(item) + 1, static_cast<char>('a' + item % 26));
    }

    RecordingPrograms m_programs;
};

} // namespace

TEST_F(Monkey, BreaksNothing)
{
    const unsigned seed = 20261123;
    std::minstd_rand dice(seed);
    int acts = 0;
    int starts = 0;
    while (acts < Acts())
    {
        ++starts;
        RunMain([&](Robot& robot) {
            robot.Key("Alt+D");
            if (starts == 1) // the settings are still those that take pictures
                robot.WaitUntil([&] { return !Saved().empty(); }, "the first file");
            for (; acts < Acts() && IsWindow(m_window); ++acts)
            {
                if (dice() % 200 == 0)
                    PostMessageA(m_window, WM_COMMAND, IDC_ADVANCED, 0); // its button is hidden
                robot.ActAtRandom(dice);
            }
            Leave(robot);
        });
        for (const std::string& name : Saved())
        {
            if (std::filesystem::is_directory(m_home.Path("Download/" + name)))
                continue; // made in the dialog that chooses the save folder
            const std::string content = m_home.Read("Download/" + name);
            EXPECT_EQ(content, Body(static_cast<int>(content.size() / 1000))) << name;
        }
        History(); // can be read
    }
    std::cout << acts << " acts, " << starts << " starts, " << Saved().size() << " files\n";
    EXPECT_FALSE(Saved().empty());
}

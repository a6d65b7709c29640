// The settings sheet as a user meets it, over a record and files of its own.
#include "tests/Application.h"
#include "tests/MessageBox.h"

#include "persist/DownloadSetting.h"
#include "settings/SettingsSheet.h"

#include "platform/system/Registry.h"
#include "platform/testing/Robot.h"
#include "platform/testing/TempHome.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace
{

const std::string kSheet = "Configuration...";
const std::string kList = "Resolution Capacity List";
const std::string kNotAFolder = "Failed to create download folder.\nThere maybe a file has the same name.";

class SettingsSheet : public testing::Test
{
protected:
    SettingsSheet()
    {
        StartApplication();
        m_home.Write("Download/.keep", "");
        m_setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(m_home.Path("Download")));
    }

    // The sheet is cancelled at the end if it still stands.
    void Open(const std::function<void(Robot&)>& script)
    {
        RunScript([this] { RunSettingsSheet(m_setting); },
                  [&](Robot& robot) {
                      robot.WaitForWindow(kSheet);
                      script(robot);
                      if (robot.IsShown("Cancel", kSheet))
                          robot.Press("Cancel", kSheet);
                  });
    }
    // What the file holds behind the folder, on one line.
    std::string Saved() const
    {
        std::string text = m_home.Read("config.xml");
        text.erase(0, text.find("</SAVEFOLDER>") + 13);
        text.erase(text.find("</CONFIG>"));
        std::erase_if(text, [](char letter) { return letter == '\r' || letter == '\n'; });
        return text;
    }
    std::string Resolutions() const
    {
        std::string text;
        for (const CResolution& size : *m_setting.m_resolutions.Get())
            text += std::to_string(size.m_nWidth) + 'x' + std::to_string(size.m_nHeight) + ' ';
        return text;
    }

    TempHome m_home;
    CDownloadSetting m_setting;
};

// The last word of each of these that can be used.
std::string Usable(const Robot& robot, const std::vector<std::string>& controls)
{
    std::string text;
    for (const std::string& control : controls)
        text += robot.IsEnabled(control) ? control.substr(control.find_last_of(" x") + 1) + ' ' : "";
    return text;
}

void AddSize(const Robot& robot, const std::string& width, const std::string& height)
{
    robot.Type("X", width, kList);
    robot.Type("Y", height, kList);
    robot.Key("Return");
}

} // namespace

TEST_F(SettingsSheet, EveryControlReachesTheFileWithApply)
{
    Open([this](Robot& robot) {
        EXPECT_EQ(robot.TreeNodes(), (std::vector<std::string>{"Download Setting", "System Setting"}));
        EXPECT_EQ(robot.LayoutFaults(), "");
        EXPECT_EQ(robot.Text("Save Folder"), m_home.Path("Download"));
        EXPECT_FALSE(robot.IsEnabled("Apply"));
        const auto limit = [](const std::string& big, const std::string& small) {
            return "<LIMITFILESIZE><BIGTHAN FILESIZE=\"" + big + "</BIGTHAN><SMALLTHAN FILESIZE=\"" + small +
                   "</SMALLTHAN></LIMITFILESIZE>";
        };
        const std::string type = "<LIMITFILETYPE>6</LIMITFILETYPE>";
        const std::string listed = "<LIMITRESOLVING><RESOLVING_CAP RESX=\"800\" RESY=\"600\"/></LIMITRESOLVING>";
        const std::pair<std::function<void()>, std::string> steps[] = {
            {[&] { robot.Type("Save Folder", m_home.Path("New")); }, "<LIMITFILETYPE>1</LIMITFILETYPE>"},
            {[&] { robot.Press("MP3 Music"); }, "<LIMITFILETYPE>3</LIMITFILETYPE>"},
            {[&] { robot.Press("Flash Files"); }, "<LIMITFILETYPE>7</LIMITFILETYPE>"},
            {[&] { robot.Press("Images"); }, "<LIMITFILETYPE>6</LIMITFILETYPE>"},
            {[&] { robot.Press("Limit Download File Size"); }, limit("250\">1", "0\">0") + type},
            {[&] { robot.Type("Download files >, in KB", "12abc"); }, limit("12\">1", "0\">0") + type},
            {[&] { robot.Press("Download files <"); }, limit("12\">1", "0\">1") + type},
            {[&] { robot.Type("Download files <, in KB", "many"); }, limit("12\">1", "0\">1") + type},
            {[&] { robot.Press("Limit Images' Resolution"); }, limit("12\">1", "0\">1") + type},
            {[&] { robot.Press("800x600"); }, limit("12\">1", "0\">1") + listed + type},
            {[&] {
                 robot.Press("Download files >");
                 robot.Press("Download files <");
             },
             listed + type},
        };
        for (const auto& [change, saved] : steps)
        {
            change();
            robot.Press("Apply");
            EXPECT_FALSE(robot.IsEnabled("Apply"));
            EXPECT_EQ(Saved(), saved);
        }
        EXPECT_TRUE(std::filesystem::is_directory(m_home.Path("New")));
        robot.Press("OK");
        robot.WaitForNoWindow(kSheet);
    });
    EXPECT_EQ(CDownloadSetting().GetSaveFolder(), m_home.Path("New"));
}

TEST_F(SettingsSheet, BoxesFollowEachOther)
{
    const std::vector<std::string> size{"Download files >", "Download files >, in KB", "Download files <",
                                        "Download files <, in KB"};
    Open([&](Robot& robot) {
        const auto look = [&] {
            return std::string(robot.IsChecked("Limit Download File Size") ? "on " : "off ") + Usable(robot, size);
        };
        EXPECT_EQ(look(), "off ");
        const std::pair<const char*, const char*> presses[] = {
            {"Limit Download File Size", "on > KB < "},
            {"Download files <", "on > KB < KB "},
            {"Download files >", "on > < KB "},
            {"Download files <", "off > < "}, // they stay usable, to bring the limit back
            {"Download files <", "on > < KB "},
            {"Limit Download File Size", "off "},
        };
        for (const auto& [box, state] : presses)
        {
            robot.Press(box);
            EXPECT_EQ(look(), state) << box;
        }
        const std::vector<std::string> boxes{"640x480", "800x600", "1024x768", "1280x768", "1600x1200", "More..."};
        EXPECT_EQ(Usable(robot, boxes), "");
        robot.Press("Limit Images' Resolution");
        EXPECT_EQ(Usable(robot, boxes), "480 600 768 768 1200 More... ");
        robot.Press("Apply");
        robot.Press("Images"); // the only type
        EXPECT_TRUE(robot.IsChecked("Images"));
        EXPECT_FALSE(robot.IsEnabled("Apply"));
    });
    EXPECT_EQ(m_setting.m_bLimitFileSize, 0);
    EXPECT_EQ(m_setting.m_bLimitResolution, 0);
    m_setting.m_bImages = 0;
    Open([](Robot& robot) {
        EXPECT_TRUE(robot.IsChecked("Images"));
        EXPECT_FALSE(robot.IsChecked("Limit Images' Resolution"));
        robot.Press("OK");
    });
    EXPECT_EQ(m_setting.m_bImages, 1);
}

TEST_F(SettingsSheet, FoldersAreMadeOrRefusedWithoutLosingTheFile)
{
    m_home.Write("file", "");
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"abcd", ""}, // up to four bytes are taken as they are
        {"drive:", ""},
        {m_home.Path("new"), ""},
        {m_home.Path("two words "), ""},
        {m_home.Path("sp\xC3\xA9z"), ""},
        {m_home.Path("file"), kNotAFolder},
        {m_home.Path("Download/"), "File exists"},
        {m_home.Path("none/below"), "No such file or directory"},
        {"/proc/vantroy", "No such file or directory"},
        {"/none/" + std::string(249, 'n'), "No such file or directory"},
    };
    ASSERT_TRUE(m_setting.Save());
    for (const auto& [folder, message] : cases)
    {
        const std::string before = m_home.Read("config.xml");
        const bool typed = std::ranges::all_of(folder, [](char letter) { return letter > 0; });
        if (!typed)
            m_setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(folder));
        Open([&](Robot& robot) {
            if (typed)
                robot.Type("Save Folder", folder);
            robot.Press("MP3 Music"); // something to apply
            robot.Press("Apply");
            if (message.empty())
                return;
            EXPECT_NE(robot.MessageBoxText().find(message), std::string::npos) << robot.MessageBoxText();
            robot.Answer("OK");
            EXPECT_TRUE(robot.IsEnabled("Apply"));
        });
        EXPECT_EQ(m_setting.GetSaveFolder(), folder);
        EXPECT_EQ(m_home.Read("config.xml") == before, !message.empty()) << folder;
        EXPECT_EQ(std::filesystem::is_directory(folder),
                  folder.starts_with('/') && (message.empty() || folder.ends_with('/')))
            << folder;
    }
}

TEST_F(SettingsSheet, AFolderThatIsTooLongIsRefusedByItsEdit)
{
    const std::string deep = m_home.Path(std::string(120, 'a') + '/' + std::string(150, 'b'));
    std::filesystem::create_directories(deep);
    Open([&](Robot& robot) {
        robot.Type("Save Folder", std::string(300, 'x'));
        EXPECT_EQ(robot.Text("Save Folder").size(), 255U);
        robot.Type("Save Folder", m_home.Path("Download"));
        robot.Press("Browse for the save folder");
        EXPECT_EQ(robot.BrowsedFolder(), m_home.Path("Download"));
        robot.Press("Cancel");
        EXPECT_EQ(robot.Text("Save Folder", kSheet), m_home.Path("Download"));

        robot.Press("Browse for the save folder");
        robot.TypeFolder(deep);
        robot.Press("Choose");
        EXPECT_EQ(robot.Text("Save Folder", kSheet), deep);
        for (const auto& [key, focus] : {std::pair("Alt+A", "Save Folder"), {"Ctrl+Tab", "PageTree"}})
        {
            robot.Key(key);
            ExpectBox(robot, "Please enter no more than 255 characters.");
            EXPECT_EQ(robot.FocusName(), focus);
        }
        EXPECT_EQ(m_setting.GetSaveFolder(), m_home.Path("Download"));
    });
    EXPECT_FALSE(m_home.Exists("config.xml"));
}

TEST_F(SettingsSheet, TicksOfResolutionsReachTheRecordAtOnceAndTheListWithItsOk)
{
    m_setting.m_bLimitResolution = 1;
    m_setting.m_resolutions.Set({{7, 9}, {800, 600}});
    Open([this](Robot& robot) {
        EXPECT_TRUE(robot.IsChecked("800x600"));
        robot.Press("1600x1200");
        robot.Press("640x480");
        EXPECT_EQ(Resolutions(), "7x9 800x600 1600x1200 640x480 ");

        robot.Press("More...");
        robot.WaitForWindow(kList);
        EXPECT_EQ(robot.LayoutFaults(kList), "");
        EXPECT_EQ(robot.RowCount(kList), 1);
        robot.Press("Add");
        ExpectBox(robot, "Please enter an image resolution capacity item.");
        robot.Press("Remove");
        ExpectBox(robot, "Please select a resolusion capacity item to remove.");
        AddSize(robot, "640", "480"); // has its box
        AddSize(robot, "007", "10");
        EXPECT_EQ(robot.RowCount(kList), 2);
        EXPECT_EQ(robot.Cell(1, 0, kList), "007 x 10");
        robot.Key("Esc");
        robot.WaitForNoWindow(kList);
        EXPECT_EQ(Resolutions(), "7x9 800x600 1600x1200 640x480 ");

        robot.Press("More...");
        AddSize(robot, "1024", "768");
        robot.ClickRow(0, false, kList);
        robot.Press("Remove", kList);
        AddSize(robot, "5", "6");
        robot.Press("OK", kList);
        robot.WaitForNoWindow(kList);
        EXPECT_EQ(Resolutions(), "640x480 800x600 1600x1200 1024x768 5x6 ");
        EXPECT_FALSE(robot.IsChecked("1024x768")); // until the sheet opens again
    });
    EXPECT_FALSE(m_home.Exists("config.xml"));
    Open([](Robot& robot) {
        EXPECT_TRUE(robot.IsChecked("1024x768"));
        robot.Press("More...");
        robot.ClickRow(0, false, kList);
        robot.Press("Remove", kList);
        robot.Press("OK", kList); // though no row is left
        robot.WaitForNoWindow(kList);
        robot.Press("More...");
        EXPECT_FALSE(robot.IsEnabled("OK", kList));
        AddSize(robot, "5", "6");
        EXPECT_TRUE(robot.IsEnabled("OK", kList));
        robot.CloseWindow(kList);
        robot.WaitForNoWindow(kList);
    });
}

TEST_F(SettingsSheet, TheBrowserButtonComesAndGoesAtOnce)
{
    const auto stands = [this] {
        return m_home.Exists("registry-machine.ini") &&
               m_home.Read("registry-machine.ini").find("Exec=" + m_home.Path("vantroy") + "\n") != std::string::npos;
    };
    Open([&](Robot& robot) {
        robot.SelectNode({"System Setting"});
        EXPECT_EQ(robot.LayoutFaults(), "");
        robot.Key("Alt+R");
        robot.Key("Alt+A");
        ExpectBox(robot, "Program shortcut icon has been added to browser's toolbar.\n"
                         "You need to restart browser to make it work.");
        EXPECT_TRUE(stands());
        EXPECT_FALSE(robot.IsEnabled("Apply"));
        SetRegistryGuard([](HKEY root, const char*) { return root != HKEY_LOCAL_MACHINE; });
        robot.Press("Add Shortcut to Toolbar");
        robot.Press("Remove Shortcut from Toolbar");
        SetRegistryGuard(nullptr);
        EXPECT_TRUE(stands());
        robot.Press("Remove Shortcut from Toolbar");
        ExpectBox(robot, "Program shortcut icon has been removed.\nYou need to restart browser to make it work.");
    });
    EXPECT_FALSE(stands());
}

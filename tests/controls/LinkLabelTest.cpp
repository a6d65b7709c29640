#include "ControlsTest.h"

#include "controls/LinkLabel.h"
#include "tests/MessageBox.h"

#include "platform/testing/RecordingPrograms.h"

#include <algorithm>

namespace
{

constexpr const char* kLink = "Home of this";
constexpr const char* kUrl = "http://h.example/a b";

constexpr COLORREF kBlue = 0xFF0000;
constexpr COLORREF kRed = 0x0000FF;
constexpr COLORREF kGreen = 0x00FF00;

class LinkDlg : public CDialog
{
public:
    LinkDlg() : CDialog(IDD_LINK)
    {
        m_link.SetUrl(kUrl);
        m_link.SetColors(kBlue, kRed, kGreen);
    }

    CLinkLabel m_link;

private:
    BOOL OnInitDialog() override
    {
        return m_link.SubclassDlgItem(IDC_LINK, this) && CDialog::OnInitDialog();
    }
};

// Letters have soft edges.
bool IsNear(COLORREF pixel, COLORREF color)
{
    const auto differ = [=](int shift) {
        return std::abs(static_cast<int>(pixel >> shift & 0xFF) - static_cast<int>(color >> shift & 0xFF)) > 0x60;
    };
    return !differ(0) && !differ(8) && !differ(16);
}

// The colour of the label's text, its underline told by "_".
std::string Look(const Robot& robot)
{
    const auto pixels = robot.Pixels(kLink);
    const std::pair<COLORREF, const char*> colors[] = {{kBlue, "link"}, {kRed, "visited"}, {kGreen, "hover"}};
    std::string look;
    for (const auto& [color, name] : colors)
    {
        std::ptrdiff_t most = 0;
        for (const auto& row : pixels)
            most = std::max(most, std::ranges::count_if(row, [color](COLORREF pixel) { return IsNear(pixel, color); }));
        if (most > 0)
            look += name + std::string(most > static_cast<std::ptrdiff_t>(pixels[0].size()) / 4 ? "_" : "");
    }
    return look;
}

class LinkLabel : public ControlsTest
{
protected:
    void Play(LinkDlg& dialog, const std::function<void(Robot&)>& script)
    {
        const auto play = [&](Robot& robot) {
            script(robot);
            robot.Press("Close");
        };
        RunScript([&] { dialog.DoModal(); }, play);
    }
    static void WaitForLook(Robot& robot, const std::string& look)
    {
        robot.WaitUntil([&] { return Look(robot) == look; }, look);
    }

    TempHome m_home;
};

} // namespace

TEST_F(LinkLabel, ShowsWhatTheMouseAndThePastMakeOfIt)
{
    const RecordingPrograms programs(m_home, {"xdg-open"});
    for (const auto& [mode, mark] : {std::pair(CLinkLabel::kUnderlineAlways, "_"), {CLinkLabel::kUnderlineHover, ""}})
    {
        LinkDlg dialog;
        dialog.m_link.SetUnderline(mode);
        Play(dialog, [&, mark = std::string(mark)](Robot& robot) {
            WaitForLook(robot, "link" + mark);
            EXPECT_EQ(robot.Pixels(kLink).back().back(), GetSysColor(COLOR_3DFACE));
            robot.PointAt(kLink);
            EXPECT_TRUE(robot.HasHand(kLink));
            WaitForLook(robot, "hover_");
            robot.PointAt("Close");
            WaitForLook(robot, "link" + mark);
            robot.Key("Tab");
            robot.Key("Return");
            EXPECT_EQ(programs.Arguments("xdg-open"), std::vector<std::string>{kUrl});
            WaitForLook(robot, "visited" + mark);
            EXPECT_TRUE(dialog.m_link.IsVisited());
            dialog.m_link.SetVisited(false);
            WaitForLook(robot, "link" + mark);
            dialog.m_link.SetPointer(HCURSOR::Null);
            robot.PointAt(kLink);
            EXPECT_FALSE(robot.HasHand(kLink));
            robot.PointAt("Close");
            WaitForLook(robot, "link" + mark);
        });
    }
}

TEST_F(LinkLabel, SaysWhyALinkCannotBeOpened)
{
    const RecordingPrograms programs(m_home, {});
    m_home.Write("bin/text", "no program");
    const struct
    {
        const char* url;
        const char* command;
        const char* reason;
    } cases[] = {
        {"", "", "The operating system is out\nof memory or resources."},
        {kUrl, "", "The specified file was not found."},
        {kUrl, "text %1", "The operating system denied\naccess to the specified file."},
        {kUrl, "mailto:text %1", "The .EXE file is invalid\n(non-Win32 .EXE or error in .EXE image)."},
    };
    LinkDlg dialog;
    dialog.m_link.SetVisited(true);
    Play(dialog, [&](Robot& robot) {
        for (const auto& [url, command, reason] : cases)
        {
            dialog.m_link.SetUrl(url);
            m_home.Write("registry-classes.ini",
                         std::string("[.htm]\n=page\n[page\\shell\\open\\command]\n=") + command + '\n');
            robot.Press(kLink);
            ExpectBox(robot, std::string("Unable to open hyperlink:\n\n") + reason);
            EXPECT_FALSE(dialog.m_link.IsVisited());
        }
    });
}

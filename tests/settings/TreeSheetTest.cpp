// The tree sheet with pages at any depth, some of which refuse.
#include "tests/Application.h"

#include "resources/ResourceIds.h"
#include "settings/ThemeLibrary.h"
#include "settings/ThemedPageFrame.h"
#include "settings/TreePropSheet.h"

#include "platform/testing/Robot.h"
#include "platform/testing/ThemeLibrary.h"

#include <gtest/gtest.h>

#include <atomic>

using Texts = std::vector<std::string>;

namespace
{

class Page : public CPropertyPage
{
public:
    explicit Page(const std::string& title) : CPropertyPage(IDD_GENERAL)
    {
        m_psp.dwFlags |= PSP_USETITLE;
        m_psp.pszTitle = title;
    }

    std::atomic<bool> m_bMayLeave = true;
    std::atomic<bool> m_bMayShow = true;

    BOOL OnSetActive() override
    {
        return m_bMayShow;
    }
    BOOL OnKillActive() override
    {
        return m_bMayLeave;
    }
};

// Shows what it was given, and where it draws.
class OpenFrame : public CThemedPageFrame
{
public:
    using CThemedPageFrame::CalcCaptionArea;
    using CThemedPageFrame::CThemedPageFrame;
    using CThemedPageFrame::m_message;

    std::string m_told; // text and number of the icon

    void SetCaption(const std::string& text, HICON icon) override
    {
        m_told = text + '|' + std::to_string(icon.resource);
        CThemedPageFrame::SetCaption(text, icon);
    }
};

// a (no page) > b > c (no page) > d; then e::f and g.
class Sheet : public CTreePropSheet
{
public:
    Sheet() : CTreePropSheet("Sheet")
    {
        StartApplication();
        m_icons.Create(IDR_SETTINGS, 16);
        AttachPageIcon(m_g, m_icons, 0);
        for (Page* page : {&m_d, &m_b, &m_ef, &m_g})
            AddPage(page);
        SetEmptyPageFormat("Choose a page below %s.");
    }

    Page m_d{"a::b::c::d"};
    Page m_b{"a::b"};
    Page m_ef{"e\\::f"};
    Page m_g{"g"};
    CImageList m_icons;
    const CThemeLibrary m_themes;
    OpenFrame* m_pFrame = nullptr;

    void Play(const std::function<void(Robot&)>& script)
    {
        RunScript([&] { DoModal(); },
                  [&](Robot& robot) {
                      robot.WaitForWindow("Sheet");
                      script(robot);
                      robot.Key("Esc");
                  });
    }
    // The node that is selected and the title of the page on show, if one is.
    std::string Look(const Robot& robot)
    {
        const CPropertyPage* page = GetActivePage();
        return robot.SelectedNode() + ' ' + (page && page->IsWindowVisible() ? page->m_psp.pszTitle : "");
    }

protected:
    std::unique_ptr<CPageFrame> MakePageFrame() override
    {
        auto frame = std::make_unique<OpenFrame>(m_themes);
        m_pFrame = frame.get();
        return frame;
    }
};

} // namespace

TEST(TreeSheets, KeysWalkTheTreeThroughPagesAndEmptyNodes)
{
    Sheet sheet;
    Page h("a::h");
    sheet.AddPage(&h);
    sheet.Play([&](Robot& robot) {
        EXPECT_EQ(robot.LayoutFaults(), "");
        EXPECT_EQ(robot.TreeNodes(), (Texts{"a", "  b", "    c", "      d", "  h", "e::f", "g"}));
        EXPECT_EQ(robot.FocusName(), "PageTree");
        const Texts walk = {"d a::b::c::d", "h a::h", "e::f e\\::f", "g g", "a ", "b a::b", "c ", "d a::b::c::d"};
        for (std::size_t step = 0; step < walk.size(); ++step)
        {
            EXPECT_EQ(sheet.Look(robot), walk[step]);
            robot.Key("Ctrl+Tab");
        }
        for (std::size_t step = walk.size(); step-- > 0;)
        {
            robot.Key("Ctrl+Shift+Tab");
            EXPECT_EQ(sheet.Look(robot), walk[step]);
        }
        EXPECT_EQ(sheet.m_pFrame->m_message, "Choose a page below a.");
        robot.Key("Tab"); // from the tree into the page
        EXPECT_EQ(robot.FocusName(), "Add Shortcut to Toolbar");
        robot.Key("Ctrl+Tab");
        EXPECT_EQ(robot.FocusName(), "PageTree");
    });
}

TEST(TreeSheets, ANodeShowsTheIconOfItsPageOrADefaultOne)
{
    Sheet sheet;
    CImageList three = sheet.m_icons;
    three.Add(three.ExtractIcon(0));
    EXPECT_FALSE(sheet.SetDefaultTreeIcons(three));
    EXPECT_TRUE(sheet.SetDefaultTreeIcons(sheet.m_icons));
    EXPECT_TRUE(sheet.SetViewOptions(true, true, true));
    sheet.Play([&](Robot& robot) {
        const auto captionAt = [&](const Robot::NodePath& node) {
            robot.SelectNode(node);
            return sheet.m_pFrame->m_told;
        };
        EXPECT_EQ(captionAt({"a", "b", "c"}), "c|" + std::to_string(IDB_SETTINGS));
        EXPECT_EQ(captionAt({"a", "b"}), "b|" + std::to_string(IDB_SETTINGS_PAGE));
        EXPECT_EQ(captionAt({"g"}), "g|" + std::to_string(IDB_SETTINGS)); // its own
    });
}

TEST(TreeSheets, WhatAPageRefusesDoesNotHappenInTheTree)
{
    Sheet sheet;
    sheet.Play([&](Robot& robot) {
        sheet.m_d.m_bMayLeave = false;
        robot.SelectNode({"g"});
        robot.SelectNode({"a"});
        robot.Key("Ctrl+Tab");
        EXPECT_FALSE(sheet.SetActivePage(&sheet.m_b));
        EXPECT_EQ(sheet.Look(robot), "d a::b::c::d");
        sheet.m_d.m_bMayLeave = true;

        robot.SelectNode({"a"});
        sheet.m_b.m_bMayShow = false;
        robot.SelectNode({"a", "b"});
        EXPECT_EQ(sheet.Look(robot), "a ");
        sheet.m_b.m_bMayShow = true;
        sheet.m_d.m_bMayLeave = false; // it was left already
        EXPECT_TRUE(sheet.SetActivePage(&sheet.m_b));
        EXPECT_EQ(sheet.Look(robot), "b a::b");
        sheet.m_b.m_bMayLeave = false;
        robot.Press("OK");
        EXPECT_TRUE(sheet.IsWindowVisible());
    });
}

TEST(TreeSheets, TheTreeFollowsPagesThatComeAndGo)
{
    Sheet sheet;
    Page h("a::h");
    Page again("g");
    sheet.Play([&](Robot& robot) {
        sheet.AddPage(&h);
        EXPECT_EQ(robot.SelectedNode(), "d");
        sheet.SetActivePage(&h);
        EXPECT_EQ(sheet.Look(robot), "h a::h");
        sheet.RemovePage(&sheet.m_d);
        EXPECT_EQ(robot.TreeNodes(), (Texts{"a", "  b", "  h", "e::f", "g"}));
        sheet.RemovePage(&h);
        EXPECT_EQ(sheet.Look(robot), "g g");
        sheet.AddPage(&again); // the last of two pages of one title has the node
        robot.SelectNode({"e::f"});
        robot.SelectNode({"g"});
        EXPECT_EQ(sheet.GetActiveIndex(), 3);
        for (Page* page : {&sheet.m_b, &sheet.m_ef, &sheet.m_g, &again})
            sheet.RemovePage(page);
        EXPECT_EQ(robot.TreeNodes(), Texts());
        robot.Key("Ctrl+Tab");
    });
}

TEST(TreeSheets, AThemeDrawsTheFrame)
{
    ThemeLibrary library;
    Sheet sheet;
    sheet.SetViewOptions(true, true, true);
    sheet.Play([&](Robot& robot) {
        robot.WaitUntil([&] { return robot.IsShown("OK") && !library.m_drawings.empty(); }, "a background");
        RECT client;
        sheet.m_pFrame->GetClientRect(&client);
        const auto& drawing = library.m_drawings.back();
        EXPECT_EQ(std::tie(drawing.part, drawing.state, drawing.bounds.right, drawing.bounds.bottom),
                  std::make_tuple(9, 0, client.right, client.bottom));
        EXPECT_EQ(sheet.m_pFrame->CalcCaptionArea(nullptr).left, library.m_nBorder);
        library.m_bActive = false;
        EXPECT_EQ(sheet.m_pFrame->CalcCaptionArea(nullptr).left, 0);
        EXPECT_EQ(library.m_nOpen, 0);
    });
}

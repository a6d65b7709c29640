// The tree sheet with pages at any depth, some of which refuse.
#include "tests/Application.h"

#include "resources/ResourceIds.h"
#include "settings/ThemeLibrary.h"
#include "settings/ThemedPageFrame.h"
#include "settings/TreePropSheet.h"
#include "settings/TreeWalk.h"

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

// Tells what it was given; the paint of a frame goes its usual way.
class TellingFrame : public CThemedPageFrame
{
public:
    TellingFrame(std::string& caption, std::string& message) : m_told(caption), m_toldMessage(message)
    {}

    void SetCaption(const std::string& text, HICON icon) override
    {
        m_told = text + '|' + std::to_string(icon.resource);
        CThemedPageFrame::SetCaption(text, icon);
    }
    void SetMessageText(const std::string& text) override
    {
        m_toldMessage = text;
        CThemedPageFrame::SetMessageText(text);
    }

private:
    std::string& m_told;
    std::string& m_toldMessage;
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
    std::string m_caption;
    std::string m_message;

    INT_PTR Play(const std::function<void(Robot&)>& script)
    {
        INT_PTR result = 0;
        RunScript([&] { result = DoModal(); },
                  [&](Robot& robot) {
                      robot.WaitForWindow("Sheet");
                      script(robot);
                      robot.Key("Esc");
                  });
        return result;
    }
    // The title of the page on show; empty if none is.
    std::string Showing()
    {
        const CPropertyPage* page = GetActivePage();
        return page && page->IsWindowVisible() ? page->m_psp.pszTitle : std::string();
    }

protected:
    std::unique_ptr<CPageFrame> MakePageFrame() override
    {
        return std::make_unique<TellingFrame>(m_caption, m_message);
    }
};

// Nodes by number from 1, each with its parent (0: none), in the order of the walk.
class NumberedTree
{
public:
    explicit NumberedTree(std::vector<int> parents) : m_parents(std::move(parents))
    {}

    static HTREEITEM Item(int number)
    {
        return {reinterpret_cast<void*>(static_cast<std::intptr_t>(number))};
    }
    static int Number(HTREEITEM item)
    {
        return static_cast<int>(reinterpret_cast<std::intptr_t>(item.node));
    }
    HTREEITEM GetRootItem() const
    {
        return Among(0, 1, 1);
    }
    HTREEITEM GetParentItem(HTREEITEM item) const
    {
        return Item(Parent(Number(item)));
    }
    HTREEITEM GetChildItem(HTREEITEM item) const
    {
        return Among(Number(item), 1, 1);
    }
    HTREEITEM GetNextSiblingItem(HTREEITEM item) const
    {
        return Among(Parent(Number(item)), Number(item) + 1, 1);
    }
    HTREEITEM GetPrevSiblingItem(HTREEITEM item) const
    {
        return Among(Parent(Number(item)), Number(item) - 1, -1);
    }

private:
    int Parent(int number) const
    {
        return m_parents[static_cast<std::size_t>(number - 1)];
    }
    HTREEITEM Among(int parent, int from, int step) const
    {
        while (from >= 1 && from <= static_cast<int>(m_parents.size()) && Parent(from) != parent)
            from += step;
        return from >= 1 && from <= static_cast<int>(m_parents.size()) ? Item(from) : HTREEITEM();
    }

    std::vector<int> m_parents;
};

} // namespace

TEST(TreeWalk, GoesThroughEveryNodeAndAround)
{
    for (const std::vector<int>& parents :
         {std::vector<int>{0}, {0, 0, 0}, {0, 1, 2, 3}, {0, 1, 2, 2, 1, 0}, {0, 1, 1, 3, 4, 0, 6, 6}})
    {
        const NumberedTree tree(parents);
        const int count = static_cast<int>(parents.size());
        for (int number = 1; number <= count; ++number)
        {
            const int next = number % count + 1;
            EXPECT_EQ(NumberedTree::Number(NextTreeItem(tree, NumberedTree::Item(number))), next);
            EXPECT_EQ(NumberedTree::Number(PrevTreeItem(tree, NumberedTree::Item(next))), number);
        }
    }
    const NumberedTree empty({});
    EXPECT_FALSE(NextTreeItem(empty, {}));
    EXPECT_FALSE(PrevTreeItem(empty, {}));
}

TEST(PageFrame, CaptionColorsAreCutToWholeSteps)
{
    const std::tuple<COLORREF, COLORREF, LONG, LONG, COLORREF> cases[] = {
        {0x000000, 0xFFFFFF, 0, 2, 0x000000},
        {0x000000, 0xFFFFFF, 1, 2, 0x7F7F7F},
        {0x0000FF, 0xFF0000, 1, 3, 0x5500AA},
        {0x102030, 0x102030, 9, 10, 0x102030},
    };
    for (const auto& [from, to, line, count, color] : cases)
        EXPECT_EQ(CaptionColor(from, to, line, count), color) << line << '/' << count;
}

TEST(TreeSheets, KeysWalkTheTreeThroughPagesAndEmptyNodes)
{
    Sheet sheet;
    EXPECT_TRUE(sheet.SetDefaultTreeIcons(sheet.m_icons));
    EXPECT_TRUE(sheet.SetViewOptions(true, true, true));
    sheet.Play([&](Robot& robot) {
        EXPECT_EQ(robot.LayoutFaults(), "");
        EXPECT_EQ(robot.TreeNodes(), (Texts{"a", "  b", "    c", "      d", "e::f", "g"}));
        EXPECT_EQ(robot.FocusName(), "PageTree");
        const Texts walk = {"d a::b::c::d", "e::f e\\::f", "g g", "a ", "b a::b", "c ", "d a::b::c::d"};
        const auto look = [&] { return robot.SelectedNode() + ' ' + sheet.Showing(); };
        for (std::size_t step = 0; step < walk.size(); ++step)
        {
            EXPECT_EQ(look(), walk[step]);
            robot.Key("Ctrl+Tab");
        }
        for (std::size_t step = walk.size(); step-- > 0;)
        {
            robot.Key("Ctrl+Shift+Tab");
            EXPECT_EQ(look(), walk[step]);
        }
        EXPECT_EQ(sheet.m_message, "Choose a page below a.");
        robot.Key("Tab"); // from the tree into the page
        EXPECT_EQ(robot.FocusName(), "Add Shortcut to Toolbar");
        robot.Key("Ctrl+Tab");
        EXPECT_EQ(robot.FocusName(), "PageTree");
    });
}

TEST(TreeSheets, ANodeShowsTheIconOfItsPageOrADefaultOne)
{
    const std::string group = '|' + std::to_string(IDB_SETTINGS);
    const std::string plain = '|' + std::to_string(IDB_SETTINGS_PAGE);
    for (const bool icons : {true, false})
    {
        Sheet sheet;
        CImageList three = sheet.m_icons;
        three.Add(three.ExtractIcon(0));
        EXPECT_FALSE(sheet.SetDefaultTreeIcons(three));
        EXPECT_TRUE(sheet.SetDefaultTreeIcons(sheet.m_icons));
        EXPECT_TRUE(sheet.SetViewOptions(true, true, icons));
        sheet.Play([&](Robot& robot) {
            const auto captionAt = [&](const Robot::NodePath& node) {
                robot.SelectNode(node);
                return sheet.m_caption;
            };
            EXPECT_FALSE(sheet.SetViewOptions(false, false, false));
            EXPECT_EQ(captionAt({"a", "b", "c"}), "c" + (icons ? group : "|0"));
            EXPECT_EQ(captionAt({"a", "b"}), "b" + (icons ? plain : "|0"));
            EXPECT_EQ(captionAt({"g"}), "g" + group); // its own
        });
    }
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
        EXPECT_EQ(robot.SelectedNode() + ' ' + sheet.Showing(), "d a::b::c::d");
        sheet.m_d.m_bMayLeave = true;

        robot.SelectNode({"a"});
        sheet.m_b.m_bMayShow = false;
        robot.SelectNode({"a", "b"});
        EXPECT_EQ(robot.SelectedNode() + ' ' + sheet.Showing(), "a ");
        sheet.m_b.m_bMayShow = true;
        sheet.m_d.m_bMayLeave = false; // it was left already
        EXPECT_TRUE(sheet.SetActivePage(&sheet.m_b));
        EXPECT_EQ(robot.SelectedNode() + ' ' + sheet.Showing(), "b a::b");
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
        EXPECT_EQ(robot.SelectedNode() + ' ' + sheet.Showing(), "h a::h");
        sheet.RemovePage(&sheet.m_d);
        EXPECT_EQ(robot.TreeNodes(), (Texts{"a", "  b", "  h", "e::f", "g"}));
        sheet.RemovePage(&h);
        EXPECT_EQ(robot.SelectedNode() + ' ' + sheet.Showing(), "g g");
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

TEST(TreeSheets, WithoutCaptionOrTreeTheSheetIsSmaller)
{
    std::vector<RECT> areas;
    for (const auto& [tree, caption] : {std::pair(true, true), {true, false}, {false, false}})
    {
        Sheet sheet;
        sheet.SetViewOptions(tree, caption, false);
        sheet.Play([&](Robot& robot) {
            EXPECT_EQ(robot.LayoutFaults(), "");
            RECT& area = areas.emplace_back();
            sheet.GetWindowRect(&area);
            area = {0, 0, area.right - area.left, area.bottom - area.top};
            robot.Key("Ctrl+Tab");
            EXPECT_EQ(sheet.Showing(), tree ? "e\\::f" : "a::b");
        });
    }
    EXPECT_LT(areas[1].bottom, areas[0].bottom);
    EXPECT_EQ(areas[1].right, areas[0].right);
    EXPECT_LT(areas[2].right, areas[1].right);
    EXPECT_EQ(areas[2].bottom, areas[0].bottom);
}

TEST(TreeSheets, AThemeDrawsTheFrame)
{
    ThemeLibrary library;
    class ThemedSheet : public Sheet
    {
    public:
        class Frame : public CThemedPageFrame
        {
        public:
            using CThemedPageFrame::CalcCaptionArea;
            using CThemedPageFrame::CalcMessageArea;
            using CThemedPageFrame::CThemedPageFrame;
        };
        std::unique_ptr<CPageFrame> MakePageFrame() override
        {
            auto frame = std::make_unique<Frame>(m_themes);
            m_pFrame = frame.get();
            return frame;
        }
        const CThemeLibrary m_themes;
        Frame* m_pFrame = nullptr;
    };
    ThemedSheet sheet;
    sheet.SetViewOptions(true, true, true);
    sheet.Play([&](Robot& robot) {
        const auto painted = [&] { return robot.IsShown("OK") && !library.m_drawings.empty(); };
        robot.WaitUntil(painted, "a background");
        RECT client;
        sheet.m_pFrame->GetClientRect(&client);
        const auto& drawing = library.m_drawings.back();
        EXPECT_EQ(std::tie(drawing.part, drawing.state, drawing.bounds.right, drawing.bounds.bottom),
                  std::make_tuple(9, 0, client.right, client.bottom));
        const LONG border = library.m_nBorder;
        const RECT caption = sheet.m_pFrame->CalcCaptionArea(nullptr);
        const RECT message = sheet.m_pFrame->CalcMessageArea(nullptr);
        EXPECT_EQ(std::tie(caption.left, caption.top, caption.right),
                  std::make_tuple(border, border, client.right - border));
        EXPECT_EQ(std::tie(message.left, message.top, message.right, message.bottom),
                  std::make_tuple(border, caption.bottom + 1, client.right - border, client.bottom - border));
        library.m_bActive = false;
        EXPECT_EQ(sheet.m_pFrame->CalcCaptionArea(nullptr).left, 0);
        EXPECT_EQ(library.m_nOpen, 0);
    });
}

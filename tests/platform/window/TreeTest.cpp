#include "TestFrame.h"

using Texts = std::vector<std::string>;

namespace
{

class TreeTest : public testing::Test
{
protected:
    const std::unique_ptr<TestFrame> m_frame{TestFrame::Open()};
    CTreeCtrl& m_tree = m_frame->Pane(0).m_tree;
    const Robot m_robot;
    Texts m_selected; // text and data

    void SetUp() override
    {
        CImageList images;
        ASSERT_TRUE(images.Create(IDR_IMAGES, 16));
        m_tree.SetImageList(images);
        m_frame->Pane(0).m_onNotify = [this](NMHDR& head) {
            const auto& change = reinterpret_cast<NMTREEVIEW&>(head);
            if (head.code == TVN_SELCHANGED && head.idFrom == 1)
                m_selected.push_back(m_tree.GetItemText(change.hItem) + std::to_string(change.lParam));
        };
    }

    HTREEITEM Add(const std::string& text, int data, HTREEITEM parent = {})
    {
        const HTREEITEM item = m_tree.InsertItem(text, data, parent);
        m_tree.SetItemData(item, static_cast<DWORD_PTR>(data));
        return item;
    }
};

} // namespace

TEST_F(TreeTest, TellsOfANewSelectionByMouseKeysAndProgram)
{
    const HTREEITEM root = Add("root", 0);
    Add("page", 2, Add("day", 1, root));
    m_tree.Expand(root, TVE_EXPAND);
    EXPECT_EQ(m_robot.TreeNodes(), (Texts{"root", "  day"}));
    m_robot.ExpandNode({"root", "day"});
    EXPECT_FALSE(m_tree.GetSelectedItem());
    m_robot.SelectNode({"root", "day", "page"});
    m_robot.SelectNode({"root", "day", "page"});
    m_robot.SelectNode({});
    EXPECT_EQ(m_robot.SelectedNode(), "page");
    m_robot.Key("Up");
    m_tree.SelectItem(root);
    EXPECT_EQ(m_selected, (Texts{"page2", "day1", "root0"}));
    EXPECT_EQ(m_robot.SelectedNode(), "root");

    m_tree.DeleteAllItems();
    m_tree.Expand(Add("new", 0), TVE_EXPAND);
    EXPECT_EQ(m_robot.TreeNodes(), Texts{"new"});
    EXPECT_EQ(m_selected.size(), 3u);
}

TEST_F(TreeTest, TakesTensOfThousandsOfNodesAndAnyText)
{
    const Texts texts{std::string(5 << 20, 'x'), "a\r\n\tb", "\xE2\x80\xAEgpj", "\xFF", std::string("a\0b", 3), ""};
    const HTREEITEM root = Add("root", 0);
    for (const std::string& text : texts)
        EXPECT_EQ(m_tree.GetItemText(Add(text, 1, root)), text);
    for (int day = 0; day < 500; ++day)
    {
        const HTREEITEM parent = Add("day " + std::to_string(day), 1, root);
        for (int page = 0; page < 100; ++page)
            Add("page " + std::to_string(page), 9, parent); // there is no such image
        m_tree.Expand(parent, TVE_EXPAND);
    }
    m_tree.Expand(root, TVE_EXPAND);
    m_robot.SelectNode({"root", "day 499", "page 99"});
    EXPECT_EQ(m_selected, Texts{"page 999"});
    EXPECT_EQ(m_robot.TreeNodes().size(), 1 + texts.size() + 500 * 101);
}

TEST_F(TreeTest, ARefusedSelectionStaysWhereItWasByMouseKeysAndProgram)
{
    const HTREEITEM held = Add("held", 0);
    const HTREEITEM other = Add("other", 1);
    bool nested = false;
    std::string refused;
    m_tree.SelectItem(held);
    m_frame->Pane(0).m_answer = [&](const NMTREEVIEW& change) {
        if (change.hdr.code != TVN_SELCHANGING || nested)
            return 0;
        refused += m_tree.GetItemText(change.hItem) + ' ';
        return 1;
    };
    EXPECT_FALSE(m_tree.SelectItem(other));
    m_robot.SelectNode({"other"});
    m_robot.Key("Down");
    EXPECT_EQ(refused, "other other other ");
    EXPECT_EQ(m_robot.SelectedNode(), "held");
    EXPECT_EQ(m_selected, Texts{"held0"});

    // The program has rebuilt the tree when the question is answered.
    m_frame->Pane(0).m_answer = [&](const NMTREEVIEW& change) {
        if (change.hdr.code == TVN_SELCHANGING && !std::exchange(nested, true))
        {
            m_tree.DeleteAllItems();
            m_tree.SelectItem(Add("new", 2));
        }
        return 0;
    };
    m_robot.SelectNode({"other"});
    EXPECT_EQ(m_robot.TreeNodes(), Texts{"new"});
    EXPECT_EQ(m_selected, (Texts{"held0", "new2"}));
}

TEST_F(TreeTest, LeadsFromNodeToNodeAndDeletesThem)
{
    EXPECT_FALSE(m_tree.GetRootItem());
    const HTREEITEM a = Add("a", 0);
    const HTREEITEM b = Add("b", 0);
    const HTREEITEM inner = Add("inner", 0, a);
    const HTREEITEM last = Add("last", 1, a);
    m_tree.Expand(inner, TVE_EXPAND);
    EXPECT_EQ(m_tree.GetRootItem(), a);
    EXPECT_EQ(m_tree.GetChildItem(a), inner);
    EXPECT_EQ(m_tree.GetNextSiblingItem(inner), last);
    EXPECT_EQ(m_tree.GetPrevSiblingItem(b), a);
    EXPECT_EQ(m_tree.GetParentItem(last), a);
    for (const HTREEITEM none : {m_tree.GetParentItem(a), m_tree.GetChildItem(b), m_tree.GetNextSiblingItem(b),
                                 m_tree.GetPrevSiblingItem(inner), m_tree.GetNextSiblingItem({})})
        EXPECT_FALSE(none);
    m_tree.SetItemImage(b, 1);
    EXPECT_EQ(m_tree.GetItemImage(b), 1);
    m_tree.DeleteItem(a);
    EXPECT_EQ(m_robot.TreeNodes(), Texts{"b"});
}

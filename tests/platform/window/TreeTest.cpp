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
    m_robot.ExpandNode({"root", "day"});
    EXPECT_FALSE(m_tree.GetSelectedItem());
    m_robot.SelectNode({"root", "day", "page"});
    m_robot.SelectNode({"root", "day", "page"});
    m_robot.SelectNode({});
    m_robot.Key("Up");
    m_tree.SelectItem(root);
    EXPECT_EQ(m_selected, (Texts{"page2", "day1", "root0"}));
    EXPECT_EQ(m_robot.SelectedNode(), "root");
    m_tree.DeleteAllItems();
    EXPECT_EQ(m_selected.size(), 3u);
}

TEST_F(TreeTest, ARefusedSelectionStaysWhereItWas)
{
    m_tree.SelectItem(Add("held", 0));
    Add("other", 1);
    int asked = 0;
    m_frame->Pane(0).m_answer = [&](const NMTREEVIEW& change) { return change.hdr.code == TVN_SELCHANGING && ++asked; };
    m_robot.SelectNode({"other"});
    m_robot.Key("Down");
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(m_selected, Texts{"held0"});

    // The program has rebuilt the tree when the question is answered.
    m_frame->Pane(0).m_answer = [&](const NMTREEVIEW& change) {
        if (change.hdr.code == TVN_SELCHANGING && asked++ == 2)
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

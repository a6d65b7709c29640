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

TEST_F(TreeTest, TakesThousandsOfNodesAndAnyText)
{
    const Texts texts{std::string(5 << 20, 'x'), "a\r\n\tb", "\xE2\x80\xAEgpj", "\xFF", std::string("a\0b", 3), ""};
    const HTREEITEM root = Add("root", 0);
    for (const std::string& text : texts)
        EXPECT_EQ(m_tree.GetItemText(Add(text, 1, root)), text);
    for (int page = 0; page < 50'000; ++page)
        Add("page " + std::to_string(page), 9, root); // there is no such image
    m_tree.Expand(root, TVE_EXPAND);
    m_robot.SelectNode({"root", "page 49999"});
    EXPECT_EQ(m_selected, Texts{"page 499999"});
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

#include "TestFrame.h"

using Texts = std::vector<std::string>;

TEST(Trees, ARefusedSelectionStaysWhereItWas)
{
    const std::unique_ptr<TestFrame> frame(TestFrame::Open());
    CTreeCtrl& tree = frame->Pane(0).m_tree;
    Texts selected; // text and data
    int asked = 0;
    const auto add = [&tree](const std::string& text, DWORD_PTR data) {
        const HTREEITEM item = tree.InsertItem(text, 0, {});
        tree.SetItemData(item, data);
        return item;
    };
    frame->Pane(0).m_onNotify = [&](NMHDR& head) -> LRESULT {
        const auto& change = reinterpret_cast<NMTREEVIEW&>(head);
        if (head.code == TVN_SELCHANGED)
            selected.push_back(tree.GetItemText(change.hItem) + std::to_string(change.lParam));
        if (head.code != TVN_SELCHANGING || ++asked == 1)
            return FALSE;
        if (asked == 4)
        {
            // The program has rebuilt the tree when the question is answered.
            tree.DeleteAllItems();
            asked = 0;
            tree.SelectItem(add("new", 2));
        }
        return asked > 1;
    };
    tree.SelectItem(add("held", 0));
    add("other", 1);
    const Robot robot;
    robot.SelectNode({"other"});
    robot.Key("Down");
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(selected, Texts{"held0"});
    robot.SelectNode({"other"});
    EXPECT_EQ(robot.TreeNodes(), Texts{"new"});
    EXPECT_EQ(selected, (Texts{"held0", "new2"}));
}

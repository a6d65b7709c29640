#include "TestFrame.h"

namespace
{

class ListTest : public testing::Test
{
protected:
    TestDialog m_dialog{IDD_LIST};
    CListCtrl m_list;
    std::vector<UINT> m_notes;

    void SetUp() override
    {
        m_dialog.Open(IDD_LIST);
        ASSERT_TRUE(m_list.SubclassDlgItem(IDC_LIST, &m_dialog));
        m_list.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
        m_list.InsertColumn(0, "Title", 120);
        m_list.InsertColumn(1, "Address", 80);
        m_dialog.m_onNotify = [this](NMHDR& head) {
            EXPECT_EQ(head.hwndFrom, m_list.m_hWnd);
            EXPECT_EQ(head.idFrom, UINT_PTR{IDC_LIST});
            m_notes.push_back(head.code);
        };
    }

    void Fill(int rows)
    {
        for (int row = 0; row < rows; ++row)
            m_list.InsertItem(row, "row " + std::to_string(row));
        m_notes.clear();
    }

    bool Noted(UINT code) const
    {
        return std::count(m_notes.begin(), m_notes.end(), code) > 0;
    }
};

} // namespace

TEST_F(ListTest, KeysTickAndAskForAMenu)
{
    Fill(4);
    const Robot robot;
    robot.Key("Menu");
    EXPECT_TRUE(Noted(NM_RCLICK));
    robot.Key("Home");
    robot.Key("Down");
    for (const BOOL ticked : {TRUE, FALSE})
    {
        robot.Key("Space");
        EXPECT_EQ(m_list.GetCheck(1), ticked);
        m_notes.clear();
        m_list.SetCheck(0, ticked);
        EXPECT_EQ(robot.IsTicked(0), ticked);
        EXPECT_TRUE(Noted(LVN_ITEMCHANGED));
    }
    EXPECT_FALSE(m_list.SetCheck(9) || m_list.GetCheck(9) || m_list.SetItemText(9, 0, "x") || m_list.DeleteColumn(2));
}

// Answering from another window's modal loop: the list may go while it tells of the click.
TEST_F(ListTest, TheWindowCanGoInANotification)
{
    Fill(2);
    m_dialog.m_onNotify = [this](NMHDR& head) {
        if (head.code == NM_RCLICK)
            m_dialog.DestroyWindow();
    };
    Robot().RightClickList(0);
    EXPECT_FALSE(IsWindow(m_list.m_hWnd));
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(ListTest, ThousandsOfRowsAndAWorkerThatAddsToThem)
{
    constexpr int kRows = 5000;
    Fill(kRows);
    Worker([&] {
        EXPECT_EQ(m_list.InsertItem(kRows + 99, "<i>the last</i>"), kRows);
        m_list.SetItemText(kRows, 1, "address");
        m_list.SetCheck(kRows);
    })->Wait();
    const Robot robot;
    EXPECT_EQ(robot.RowCount(), kRows + 1);
    EXPECT_EQ(robot.Cell(kRows, 0) + robot.Cell(kRows, 1), "<i>the last</i>address");
    EXPECT_TRUE(robot.IsTicked(kRows));
    robot.Tick(kRows - 1);
    EXPECT_TRUE(m_list.GetCheck(kRows - 1));
}

TEST_F(ListTest, NothingIsToldWhileRedrawingIsOff)
{
    Fill(2);
    m_list.SetRedraw(FALSE);
    m_list.SetItemText(0, 1, "quiet");
    m_list.SetCheck(1);
    m_list.DeleteAllItems();
    m_list.InsertItem(0, "new");
    EXPECT_TRUE(m_notes.empty());
    m_list.SetRedraw(TRUE);
    m_list.SetItemText(0, 1, "told");
    m_list.SetItemText(0, 1, "told");
    EXPECT_EQ(m_notes, std::vector<UINT>{LVN_ITEMCHANGED});
}

// There Enter has no default button to press. The rows are others when the click is over.
TEST(Lists, OutsideADialogADoubleClickAndEnterAreOne)
{
    const std::unique_ptr<TestFrame> frame(TestFrame::Open());
    CListCtrl& list = frame->Pane(0).m_list;
    list.InsertColumn(0, "Name", 100);
    std::vector<int> rows;
    const auto refill = [&list] {
        list.DeleteAllItems();
        for (int row = 0; row < 3; ++row)
            list.InsertItem(row, "row", row);
    };
    frame->Pane(0).m_onNotify = [&](NMHDR& head) {
        if (head.code == NM_DBLCLK)
        {
            rows.push_back(list.GetFirstSelectedItem());
            refill();
        }
        return 0;
    };
    refill();
    const Robot robot;
    robot.DoubleClickRow(1);
    for (const char* key : {"Return", "Home", "End", "Return"})
        robot.Key(key);
    EXPECT_EQ(rows, (std::vector<int>{1, 2}));
}

// Property sheets as a user meets them, and what a derived sheet can do to one.
#include "TestDialog.h"

#include "platform/window/ImageList.h"
#include "platform/window/PropertySheet.h"

using Texts = std::vector<std::string>;

namespace
{

class TestPage : public CPropertyPage
{
public:
    TestPage(Texts& log, UINT templateId) : CPropertyPage(templateId), m_log(log), m_letter(templateId == IDD_FIRST)
    {}

    std::atomic<bool> m_bMayLeave = true;
    std::atomic<bool> m_bMayApply = true;
    std::string m_name = "old";
    int m_ticked = 1;

    BOOL OnInitDialog() override
    {
        Log("init");
        return CPropertyPage::OnInitDialog();
    }
    BOOL OnSetActive() override
    {
        Log("set");
        return TRUE;
    }
    BOOL OnKillActive() override
    {
        Log("kill");
        return m_bMayLeave && CPropertyPage::OnKillActive();
    }
    BOOL OnApply() override
    {
        Log("apply");
        return m_bMayApply && CPropertyPage::OnApply();
    }
    void OnReset() override
    {
        Log("reset");
    }

protected:
    void DoDataExchange(CDataExchange* exchange) override
    {
        if (!GetDlgItem(IDC_NAME))
            return;
        DDX_Text(exchange, IDC_NAME, m_name);
        DDV_MaxChars(exchange, m_name, 5);
        DDX_Check(exchange, IDC_BOX, m_ticked);
    }
    const MessageMap& GetMessageMap() const override
    {
        static const MessageMap map{&CPropertyPage::StaticMessageMap(),
                                    {OnControl(EN_CHANGE, IDC_NAME, &TestPage::OnNameChanged)}};
        return map;
    }

private:
    void OnNameChanged()
    {
        SetModified();
    }
    void Log(const std::string& event)
    {
        m_log.push_back((m_letter ? "1 " : "2 ") + event);
    }

    Texts& m_log;
    const bool m_letter;
};

class TestSheet : public CPropertySheet
{
public:
    TestSheet() : CPropertySheet("Sheet")
    {
        AddPage(&m_first);
        AddPage(&m_wide);
    }

    Texts m_log; // touched on the user-interface thread, or while it rests
    TestPage m_first{m_log, IDD_FIRST};
    TestPage m_wide{m_log, IDD_WIDE};
    std::function<void()> m_onInit;

    INT_PTR Play(const std::function<void(Robot&)>& script)
    {
        INT_PTR result = 0;
        RunScript([&] { result = DoModal(); },
                  [&](Robot& robot) {
                      robot.WaitForWindow("Sheet");
                      script(robot);
                  });
        return result;
    }
    Texts Taken()
    {
        return std::exchange(m_log, {});
    }

protected:
    BOOL OnInitDialog() override
    {
        const BOOL result = CPropertySheet::OnInitDialog();
        if (m_onInit)
            m_onInit();
        return result;
    }
};

} // namespace

TEST(PropertySheets, PagesAreMadeWhenFirstShownAndAskedInOrder)
{
    TestSheet sheet;
    const INT_PTR result = sheet.Play([&](Robot& robot) {
        EXPECT_EQ(robot.FocusName(), "Name");
        EXPECT_FALSE(robot.IsEnabled("Apply"));
        EXPECT_EQ(robot.LayoutFaults(), "");
        EXPECT_EQ(sheet.Taken(), (Texts{"1 init", "1 set"}));

        sheet.m_first.m_bMayLeave = false;
        EXPECT_FALSE(sheet.SetActivePage(1));
        robot.Key("Ctrl+Tab");
        EXPECT_TRUE(robot.IsShown("Tick me"));
        sheet.m_first.m_bMayLeave = true;
        EXPECT_EQ(sheet.Taken(), (Texts{"1 kill", "1 kill"}));

        robot.Key("X");
        robot.Key("Ctrl+Tab");
        EXPECT_EQ(robot.FocusName(), "Act");
        EXPECT_EQ(sheet.m_first.m_name, "x");
        robot.Key("Shift+Tab"); // to the tabs
        robot.Key("Left");
        EXPECT_EQ(sheet.GetActiveIndex(), 0);
        robot.Key("Ctrl+Shift+Tab");
        EXPECT_FALSE(robot.IsShown("Tick me"));
        EXPECT_EQ(sheet.Taken(), (Texts{"1 kill", "2 init", "2 set", "2 kill", "1 set", "1 kill", "2 set"}));

        sheet.m_wide.SetModified();
        sheet.m_first.m_bMayApply = false;
        robot.Press("Apply");
        EXPECT_EQ(sheet.GetActiveIndex(), 0);
        EXPECT_TRUE(robot.IsEnabled("Apply"));
        EXPECT_EQ(sheet.Taken(), (Texts{"2 kill", "1 apply", "1 set"}));
        sheet.m_first.m_bMayApply = true;
        robot.Press("Apply");
        EXPECT_FALSE(robot.IsEnabled("Apply"));
        EXPECT_EQ(sheet.Taken(), (Texts{"1 kill", "1 apply", "2 apply", "1 set"}));
        robot.Key("Return");
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(sheet.Taken(), (Texts{"1 kill", "1 apply", "2 apply"}));
}

TEST(PropertySheets, CancelResetsThePagesThatWereMadeAndTheSheetOpensAgain)
{
    TestSheet sheet;
    for (const char* way : {"Esc", "close box", "Cancel"})
    {
        const INT_PTR result = sheet.Play([&](Robot& robot) {
            sheet.m_first.m_bMayLeave = false;
            if (std::string(way) == "Esc")
                robot.Key(way);
            else if (std::string(way) == "Cancel")
                robot.Press(way);
            else
                robot.CloseWindow("Sheet");
        });
        EXPECT_EQ(result, IDCANCEL) << way;
        EXPECT_EQ(sheet.Taken(), (Texts{"1 init", "1 set", "1 reset"})) << way;
    }
}

TEST(PropertySheets, OnAWorkerTheSheetBlocksThatWorkerAlone)
{
    TestSheet sheet;
    INT_PTR result = 0;
    Worker worker([&] { result = sheet.DoModal(); });
    const Robot robot;
    robot.WaitForWindow("Sheet");
    sheet.m_wide.SetModified(); // has no window yet
    EXPECT_FALSE(robot.IsEnabled("Apply"));
    robot.Press("OK");
    worker.Wait();
    EXPECT_EQ(result, IDOK);
    EXPECT_FALSE(IsWindow(sheet.m_first.m_hWnd));
}

TEST(PropertySheets, ADerivedSheetMovesHidesAndLeavesWhatItLikes)
{
    TestSheet sheet;
    CImageList images;
    ASSERT_TRUE(images.Create(IDR_IMAGES, 16));
    sheet.m_wide.m_psp = {PSP_USEHICON | PSP_USETITLE, images.ExtractIcon(1), "a::b"};
    RECT page{};
    sheet.m_onInit = [&] {
        CTabCtrl& tabs = *sheet.GetTabControl();
        tabs.ShowWindow(SW_HIDE);
        tabs.EnableWindow(FALSE);
        EXPECT_EQ(tabs.GetItemText(0) + tabs.GetItemText(1), "Firsta::b");
        EXPECT_EQ(tabs.GetItemImage(0), -1);
        EXPECT_EQ(tabs.GetImageList().ExtractIcon(tabs.GetItemImage(1)), images.ExtractIcon(1));
        RECT area;
        sheet.GetWindowRect(&area);
        area.right += 150;
        sheet.MoveWindow(area);
        int children = 0;
        for (HWND child = GetWindow(sheet.m_hWnd, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        {
            ++children;
            GetWindowRect(child, &area);
            sheet.ScreenToClient(&area);
            MoveWindow(child, {area.left + 150, area.top, area.right + 150, area.bottom});
        }
        EXPECT_EQ(children, 5);
        sheet.CenterWindow();
    };
    sheet.Play([&](Robot& robot) {
        EXPECT_EQ(robot.LayoutFaults(), "");
        sheet.m_first.GetWindowRect(&page);
        NMHDR head{sheet.m_hWnd, 0, PSN_KILLACTIVE};
        EXPECT_EQ(sheet.m_first.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&head)), 0);
        sheet.m_first.ShowWindow(SW_HIDE);
        EXPECT_FALSE(robot.IsShown("Tick me"));
        EXPECT_TRUE(sheet.SetActivePage(1)); // a page that was left is not asked again
        EXPECT_EQ(sheet.Taken(), (Texts{"1 init", "1 set", "1 kill", "2 init", "2 set"}));
        RECT second;
        sheet.m_wide.GetWindowRect(&second);
        EXPECT_EQ(std::tie(second.left, second.top, second.right, second.bottom),
                  std::tie(page.left, page.top, page.right, page.bottom));
        sheet.RemovePage(&sheet.m_wide);
        EXPECT_TRUE(robot.IsShown("Tick me"));
        EXPECT_EQ(sheet.GetTabControl()->GetItemCount(), 1);
        robot.Key("Esc");
    });
}

TEST(PropertySheets, ATextThatIsTooLongKeepsThePageAndTheFocus)
{
    TestSheet sheet;
    const INT_PTR result = sheet.Play([&](Robot& robot) {
        EXPECT_TRUE(robot.IsChecked("Tick me"));
        robot.Press("Tick me");
        EXPECT_FALSE(robot.IsEnabled("Apply"));
        robot.Type("Name", "abcdefgh");
        EXPECT_EQ(robot.Text("Name"), "abcde");
        EXPECT_TRUE(robot.IsEnabled("Apply"));
        robot.Key("Home");
        robot.Key("X");
        EXPECT_EQ(robot.Text("Name"), "abcde");

        SetWindowTextA(sheet.m_first.GetDlgItem(IDC_NAME), "\xC3\xA9longer");
        robot.Key("X");
        robot.Key("Ctrl+Tab");
        EXPECT_EQ(robot.MessageBoxText(), "Please enter no more than 5 characters.");
        robot.Answer("OK");
        EXPECT_EQ(robot.FocusName(), "Name");
        robot.Press("OK");
        robot.Answer("OK");
        EXPECT_EQ(robot.FocusName(), "Name");
        robot.Key("Delete"); // all of it is selected
        robot.Press("OK");
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(sheet.m_first.m_name, "");
    EXPECT_EQ(sheet.m_first.m_ticked, 0);
}

TEST(PropertySheets, AListBoxHasAnyNumberOfSelectedRows)
{
    TestSheet sheet;
    sheet.SetActivePage(&sheet.m_wide);
    sheet.Play([&](Robot& robot) {
        CListBox box;
        box.SubclassDlgItem(IDC_ROWS, &sheet.m_wide);
        for (const char* row : {"a", "b\n", "c"})
            box.SetItemData(box.AddString(row), static_cast<DWORD_PTR>(*row));
        robot.ClickRow(2);
        robot.ClickRow(0, true);
        EXPECT_EQ(box.GetSelItems(), (std::vector<int>{0, 2}));
        EXPECT_EQ(box.DeleteString(0), 2);
        EXPECT_EQ(box.DeleteString(7), LB_ERR);
        EXPECT_EQ(box.GetText(0), "b\n");
        EXPECT_EQ(box.GetItemData(1), DWORD_PTR('c'));
        EXPECT_EQ(robot.RowCount(), 2);
        box.Detach();
        robot.Key("Esc");
    });
}

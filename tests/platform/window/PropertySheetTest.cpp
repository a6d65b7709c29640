// Property sheets as a user meets them.
#include "TestDialog.h"

#include "platform/window/PropertySheet.h"

using Texts = std::vector<std::string>;

namespace
{

// A page that logs what it is asked, as "1 set" or "2 kill".
class TestPage : public CPropertyPage
{
public:
    TestPage(Texts& log, UINT templateId)
        : CPropertyPage(templateId), m_log(log), m_number(templateId == IDD_FIRST ? "1 " : "2 ")
    {}

    BOOL OnInitDialog() override
    {
        return Log("init") && CPropertyPage::OnInitDialog();
    }
    BOOL OnSetActive() override
    {
        return Log("set");
    }
    BOOL OnKillActive() override
    {
        return Log("kill") && CPropertyPage::OnKillActive();
    }
    BOOL OnApply() override
    {
        return Log("apply") && CPropertyPage::OnApply();
    }
    void OnReset() override
    {
        Log("reset");
    }

private:
    bool Log(const char* event)
    {
        m_log.push_back(m_number + event);
        return true;
    }

    Texts& m_log;
    const std::string m_number;
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

        robot.Key("Ctrl+Tab");
        EXPECT_EQ(robot.FocusName(), "Act");
        robot.Key("Shift+Tab"); // to the tabs
        robot.Key("Left");
        EXPECT_EQ(sheet.GetActiveIndex(), 0);
        robot.Key("Ctrl+Shift+Tab");
        EXPECT_FALSE(robot.IsShown("Tick me"));
        EXPECT_EQ(sheet.Taken(), (Texts{"1 kill", "2 init", "2 set", "2 kill", "1 set", "1 kill", "2 set"}));

        sheet.m_wide.SetModified();
        robot.Press("Apply");
        EXPECT_FALSE(robot.IsEnabled("Apply"));
        EXPECT_EQ(sheet.Taken(), (Texts{"2 kill", "1 apply", "2 apply", "2 set"}));
        robot.Key("Return");
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(sheet.Taken(), (Texts{"2 kill", "1 apply", "2 apply"}));
}

TEST(PropertySheets, CancelResetsThePagesThatWereMadeAndTheSheetOpensAgain)
{
    TestSheet sheet;
    const std::function<void(Robot&)> ways[] = {[](Robot& robot) { robot.Key("Esc"); },
                                                [](Robot& robot) { robot.Press("Cancel"); },
                                                [](Robot& robot) { robot.CloseWindow("Sheet"); }};
    for (const auto& way : ways)
    {
        EXPECT_EQ(sheet.Play(way), IDCANCEL);
        EXPECT_EQ(sheet.Taken(), (Texts{"1 init", "1 set", "1 reset"}));
    }
    sheet.Play([&](Robot& robot) {
        sheet.RemovePage(&sheet.m_wide);
        sheet.RemovePage(&sheet.m_first);
        robot.Key("Ctrl+Tab"); // leads nowhere
        robot.Key("Esc");
    });
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
        EXPECT_EQ(box.GetText(0) + static_cast<char>(box.GetItemData(1)), "b\nc");
        box.Detach();
        robot.Key("Esc");
    });
}

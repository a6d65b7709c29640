// Labels that notify: links for mouse, keys and assistive technology.
#include "TestDialog.h"

#include <QAccessible>
#include <QApplication>
#include <QWidget>

namespace
{

class Link : public CStatic
{
public:
    std::vector<std::string> m_log;
    std::function<void()> m_onClick = [] {};

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == OCM_COMMAND)
        {
            m_log.push_back("itself");
            m_onClick();
        }
        return CStatic::WindowProc(message, wParam, lParam);
    }
};

QAccessibleInterface* AccessibleLink()
{
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->accessibleName() == "More of this")
            return QAccessible::queryAccessibleInterface(widget);
    return nullptr;
}

class LinkTest : public testing::Test
{
protected:
    LinkTest()
    {
        m_dialog.m_onInit = [this] { ASSERT_TRUE(m_link.SubclassDlgItem(IDC_LINK, &m_dialog)); };
        m_dialog.m_answers[WM_COMMAND] = [this](WPARAM wParam, LPARAM) -> LRESULT {
            if (wParam == (IDC_LINK | STN_CLICKED << 16))
                m_link.m_log.push_back("parent");
            else if (wParam == IDOK)
                m_dialog.EndDialog(IDOK);
            return 0;
        };
    }

    Link m_link;
    TestDialog m_dialog{IDD_LINK};
};

} // namespace

TEST_F(LinkTest, MouseKeysAndAssistiveTechnologyPressIt)
{
    const std::vector<std::string> once{"itself", "parent"};
    m_dialog.Play([&](Robot& robot) {
        const auto pressed = [&](const std::function<void()>& press) {
            m_link.m_log.clear();
            press();
            robot.WaitUntil([&] { return m_link.m_log == once; }, "the click");
        };
        robot.Key("Tab");
        EXPECT_EQ(robot.FocusName(), "More of this");
        pressed([&] { robot.Key("Return"); });
        pressed([&] { robot.Key("Space"); });
        pressed([&] { robot.Press("More of this"); });
        m_dialog.m_answers[WM_ASK] = [](WPARAM, LPARAM) -> LRESULT {
            QAccessibleInterface* link = AccessibleLink();
            EXPECT_EQ(link->role(), QAccessible::Link);
            EXPECT_EQ(link->text(QAccessible::Name), "More of this");
            link->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
            return 0;
        };
        pressed([&] { m_dialog.SendMessage(WM_ASK); });
        robot.Key("Tab");
        EXPECT_EQ(robot.FocusName(), "OK");
        EXPECT_EQ(robot.LayoutFaults(), "");
        robot.Press("OK");
    });
}

TEST_F(LinkTest, CanTakeItsWindowAway)
{
    m_link.m_onClick = [this] { m_dialog.DestroyWindow(); };
    m_dialog.Play([](Robot& robot) { robot.Press("More of this"); });
    EXPECT_EQ(m_link.m_log, std::vector<std::string>{"itself"});
}

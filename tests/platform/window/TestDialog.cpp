#include "TestDialog.h"

#include "platform/window/Resource.h"

namespace
{

constexpr ControlTemplate kForm[] = {
    {ControlClass::Label, 0xFFFF, 6, 8, 44, 10, CS_NONE, "&Name:"},
    {ControlClass::Edit, IDC_NAME, 52, 6, 90, 14},
    {ControlClass::Edit, IDC_NUMBER, 52, 24, 90, 14, CS_NUMBER, {}, "Number"},
    {ControlClass::Edit, IDC_FIXED, 52, 42, 90, 14, CS_READONLY | CS_NOTAB, {}, "Fixed"},
    {ControlClass::CheckBox, IDC_BOX, 6, 60, 60, 12, CS_NONE, "Tic&k me"},
    {ControlClass::Button, IDC_GREYED, 80, 60, 60, 16, CS_DISABLED, "&Greyed"},
    {ControlClass::Button, IDC_HIDDEN, 150, 60, 60, 16, CS_HIDDEN, "&Hidden"},
    {ControlClass::ProgressBar, IDC_BAR, 6, 80, 200, 12, CS_NONE, {}, "Progress"},
    {ControlClass::Label, IDC_STATUS, 6, 96, 200, 10, CS_NONE, "Ready", "Status"},
    {ControlClass::Button, IDC_ACT, 6, 112, 60, 16, CS_NONE, "&Act"},
    {ControlClass::Button, IDOK, 74, 112, 60, 16, CS_DEFAULT, "OK"},
    {ControlClass::Button, IDCANCEL, 142, 112, 60, 16, CS_NONE, "Cancel"},
};

constexpr ControlTemplate kList[] = {
    {ControlClass::ListView, IDC_LIST, 6, 6, 240, 120, CS_NONE, {}, "Rows"},
    {ControlClass::Button, IDCANCEL, 186, 132, 60, 16, CS_NONE, "Close"},
};

constexpr ControlTemplate kSmall[] = {
    {ControlClass::Button, IDOK, 6, 6, 60, 16, CS_DEFAULT, "OK"},
};

constexpr ControlTemplate kLink[] = {
    {ControlClass::Edit, IDC_NAME, 6, 6, 90, 14, CS_NONE, {}, "Name"},
    {ControlClass::Label, IDC_LINK, 6, 24, 90, 10, CS_NOTIFY, "More of this"},
    {ControlClass::Button, IDOK, 6, 40, 60, 16, CS_DEFAULT, "OK"},
};

constexpr ControlTemplate kFirst[] = {
    {ControlClass::Edit, IDC_NAME, 6, 6, 90, 14, CS_NONE, {}, "Name"},
    {ControlClass::CheckBox, IDC_BOX, 6, 24, 60, 12, CS_NONE, "Tic&k me"},
};

constexpr ControlTemplate kWide[] = {
    {ControlClass::Button, IDC_ACT, 6, 6, 60, 16, CS_NONE, "&Act"},
    {ControlClass::ListBox, IDC_ROWS, 80, 2, 100, 24, CS_NONE, {}, "Rows"},
};

constexpr DialogTemplate kDialogs[] = {
    {IDD_FORM, 216, 134, DS_SYSMENU | DS_MINIMIZEBOX, "Form", kForm},
    {IDD_LIST, 252, 154, DS_SYSMENU, "List", kList},
    {IDD_SMALL, 100, 28, DS_SYSMENU, "Small", kSmall},
    {IDD_LINK, 110, 60, DS_SYSMENU, "Link", kLink},
    {IDD_FIRST, 100, 40, DS_NONE, "First", kFirst},
    {IDD_WIDE, 240, 28, DS_NONE, "Wide", kWide},
};

constexpr MenuEntry kEntries[] = {
    {0, 0, "Popup"},
    {1, ID_FIRST, "&First\tCtrl+F"},
    {1, 0, {}},
    {1, ID_GREYED, "&Second"},
};

constexpr MenuEntry kFrameEntries[] = {
    {0, 0, "&File"},
    {1, ID_FIRST, "&First"},
    {1, 0, {}},
    {1, ID_GREYED, "E&xit"},
};

constexpr MenuTemplate kMenus[] = {{IDR_MENU, kEntries}, {IDR_FRAME, kFrameEntries}};
constexpr TextEntry kTexts[] = {{ID_FIRST, "Does the first thing\nThe first & best"}};
constexpr PictureEntry kPictures[] = {
    {1, "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='15'/>"},
    {2,
     "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'><rect width='16' height='16' fill='red'/></svg>"},
};
constexpr ToolBarButton kButtons[] = {{ID_FIRST, 1}};
constexpr ToolBarTemplate kToolBars[] = {{IDR_FRAME, kButtons}};

constexpr ResourceTable kTable{"Window test", "window-test", kDialogs, kMenus, kTexts, kPictures, kToolBars};

class Resources : public testing::Environment
{
    void SetUp() override
    {
        AfxSetResources(kTable);
    }
};

const testing::Environment* const kEnvironment = testing::AddGlobalTestEnvironment(new Resources);

} // namespace

void TestDialog::Open(UINT templateId)
{
    if (Create(templateId))
        ShowWindow(SW_SHOW);
}

INT_PTR TestDialog::Play(const std::function<void(Robot&)>& script)
{
    INT_PTR result = 0;
    const auto perform = [&](Robot& robot) {
        robot.WaitUntil([this] { return IsWindowVisible(); }, "the dialog");
        script(robot);
    };
    RunScript([&] { result = DoModal(); }, perform);
    return result;
}

LRESULT TestDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NOTIFY && m_onNotify)
        m_onNotify(*reinterpret_cast<NMHDR*>(lParam));
    const auto answer = m_answers.find(message);
    return answer == m_answers.end() ? CDialog::WindowProc(message, wParam, lParam) : answer->second(wParam, lParam);
}

BOOL TestDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    if (m_onInit)
        m_onInit();
    return TRUE;
}

void TestDialog::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    if (GetDlgItem(IDC_NAME))
        DDX_Text(exchange, IDC_NAME, m_name);
}

void TestDialog::PostNcDestroy()
{
    // The object may be gone after this.
    if (const auto gone = m_onGone)
        gone();
}

const MessageMap& TestDialog::GetMessageMap() const
{
    static const MessageMap map{&CDialog::StaticMessageMap(), {OnCommand(IDC_ACT, &TestDialog::OnAct)}};
    return map;
}

void TestDialog::OnAct()
{
    if (m_onAct)
        m_onAct();
}

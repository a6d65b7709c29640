// The windows that these tests open, from a resource table of their own.
#pragma once

#include "platform/testing/Robot.h"
#include "platform/window/Controls.h"
#include "platform/window/DataExchange.h"
#include "platform/window/Dialog.h"
#include "platform/window/Menu.h"
#include "platform/window/WinApp.h"
#include "tests/platform/Worker.h"

#include <gtest/gtest.h>

#include <atomic>
#include <map>

inline constexpr int IDD_FORM = 100; // of each kind of control one
inline constexpr int IDD_LIST = 101; // a list
inline constexpr int IDD_SMALL = 102;
inline constexpr int IDD_FIRST = 103; // pages of a sheet
inline constexpr int IDD_WIDE = 104;
inline constexpr int IDD_LINK = 105;
inline constexpr int IDR_MENU = 200;
inline constexpr int IDR_FRAME = 201; // menu and tool bar of a frame

inline constexpr int IDC_NAME = 1000;
inline constexpr int IDC_NUMBER = 1001;
inline constexpr int IDC_FIXED = 1002;
inline constexpr int IDC_GREYED = 1003;
inline constexpr int IDC_HIDDEN = 1004;
inline constexpr int IDC_BOX = 1005;
inline constexpr int IDC_ACT = 1006;
inline constexpr int IDC_BAR = 1007;
inline constexpr int IDC_STATUS = 1008;
inline constexpr int IDC_LIST = 1009;
inline constexpr int IDC_ROWS = 1010;
inline constexpr int IDC_LINK = 1011;

inline constexpr UINT ID_FIRST = 300;
inline constexpr UINT ID_GREYED = 301;

inline constexpr UINT WM_ASK = WM_USER + 1;
inline constexpr UINT WM_OTHER = WM_USER + 2;

// A dialog whose answers to messages each test puts in.
class TestDialog : public CDialog
{
public:
    using Answer = std::function<LRESULT(WPARAM wParam, LPARAM lParam)>;

    explicit TestDialog(UINT templateId = IDD_FORM, CWnd* parent = nullptr) : CDialog(templateId, parent)
    {}

    std::map<UINT, Answer> m_answers; // by message
    std::function<void()> m_onInit;
    std::function<void()> m_onGone;
    std::function<void()> m_onAct; // the button "Act"
    std::function<void(NMHDR&)> m_onNotify;
    std::string m_name = "as made"; // what stands in IDC_NAME

    // Shows it without a modal loop.
    void Open(UINT templateId = IDD_FORM);
    // Shows it with one, and runs the script once it is on show. Gives what DoModal gave.
    INT_PTR Play(const std::function<void(Robot&)>& script);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void PostNcDestroy() override;
    const MessageMap& GetMessageMap() const override;

private:
    void OnAct();
};

// For the robot to find out that something cannot be done.
inline const Robot kImpatient{Robot::Milliseconds(50)};

// Workers and windows: calls are carried to the user-interface thread, waited for, and never deadlock.
#include "TestDialog.h"

#include <thread>

TEST(Workers, CallsAreCarriedAndWaitedFor)
{
    TestDialog dialog;
    dialog.Open();
    const auto here = std::this_thread::get_id();
    int written = 0; // plain: what the handler wrote must be seen by the worker that waited for it
    dialog.m_answers[WM_ASK] = [&](WPARAM wParam, LPARAM lParam) -> LRESULT {
        EXPECT_EQ(std::this_thread::get_id(), here);
        ++written;
        return static_cast<LRESULT>(wParam) + lParam;
    };
    const auto call = [&] {
        const HWND status = dialog.GetDlgItem(IDC_STATUS);
        EXPECT_EQ(GetDlgCtrlID(status), IDC_STATUS);
        EXPECT_EQ(GetParent(status), dialog.m_hWnd);
        for (int i = 1; i <= 200; ++i)
        {
            EXPECT_EQ(SendMessageA(dialog.m_hWnd, WM_ASK, 30, 4), 34);
            EXPECT_EQ(written, i);
            SetWindowTextA(status, "Busy " + std::to_string(i));
        }
        EXPECT_EQ(GetWindowTextA(status), "Busy 200");
        EXPECT_FALSE(EnableWindow(status, FALSE));
        EXPECT_TRUE(EnableWindow(status, FALSE));
        EXPECT_TRUE(ShowWindow(dialog.m_hWnd, SW_HIDE));
        EXPECT_FALSE(IsWindowVisible(status));
        EXPECT_FALSE(ShowWindow(dialog.m_hWnd, SW_SHOW));
    };
    Worker(call)->Wait();
    const Robot robot;
    robot.WaitUntil([&] { return robot.Text("Status") == "Busy 200"; }, "the worker's text");
    EXPECT_FALSE(robot.IsEnabled("Status"));
}

TEST(Workers, ProgressDoesNotWaitAndTheNewestArrives)
{
    TestDialog dialog;
    dialog.Open();
    CProgressCtrl bar;
    ASSERT_TRUE(bar.SubclassDlgItem(IDC_BAR, &dialog));
    std::atomic<bool> sent = false;
    Worker worker([&] {
        bar.SendMessage(PBM_SETRANGE32, 0, 0xFFFFFFFF);
        for (WPARAM position = 0; position <= 0xC0000000; position += 0x100000)
            bar.SendMessage(PBM_SETPOS, position);
        EXPECT_EQ(SendMessageA({}, WM_ASK, 0, 0), 0); // no window, no thread to wait for
        sent = true;
    });
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!sent && std::chrono::steady_clock::now() < end)
        std::this_thread::yield(); // this thread serves nothing meanwhile
    EXPECT_TRUE(sent);
    EXPECT_EQ(bar.GetPos(), 0xC0000000);
    worker->Wait();
    Robot robot;
    robot.WaitUntil([&] { return robot.ProgressPercent() == 75; }, "the newest position");
    EXPECT_EQ(bar.SendMessage(PBM_GETPOS), 0xC0000000);
}

// So a thousand messages are no thousand paints.
TEST(Workers, WhatAPostedMessageChangesShowsAtTheNextFrame)
{
    TestDialog dialog;
    dialog.Open();
    Robot robot;
    std::string shown = "Busy";
    dialog.m_answers[WM_ASK] = [&](WPARAM, LPARAM) -> LRESULT {
        SetWindowTextA(dialog.GetDlgItem(IDC_STATUS), "Busy");
        shown = robot.Text("Status");
        return 0;
    };
    Worker worker([&] { PostMessageA(dialog.m_hWnd, WM_ASK, 0, 0); });
    worker->Wait();
    robot.WaitUntil([&] { return robot.Text("Status") == "Busy"; }, "the text");
    EXPECT_NE(shown, "Busy");
}

TEST(Workers, AMessageBoxBlocksItsWorkerAlone)
{
    TestDialog dialog;
    dialog.m_answers[WM_ASK] = [&](WPARAM, LPARAM) { return 7; };
    dialog.Play([&](Robot& robot) {
        const HWND window = dialog.m_hWnd;
        std::atomic<int> answer = 0;
        const auto ask = [&] { answer = MessageBoxA(window, "Go on?", "Ask", MB_YESNO | MB_ICONQUESTION); };
        Worker worker(ask);
        EXPECT_EQ(robot.MessageBoxText(), "Go on?");
        EXPECT_EQ(SendMessageA(window, WM_ASK, 0, 0), 7);
        EXPECT_EQ(answer, 0);
        robot.Answer("Yes");
        worker->Wait();
        EXPECT_EQ(answer, IDYES);
        robot.Press("OK", "Form");
        robot.WaitForNoWindow("Form");
        Worker(ask)->Wait();
        EXPECT_EQ(answer, 0);
    });
}

TEST(Workers, ADialogOfAWorkerLivesOnTheUserInterfaceThread)
{
    TestDialog dialog;
    const auto here = std::this_thread::get_id();
    dialog.Play([&](Robot& robot) {
        Worker worker([&] {
            TestDialog small(IDD_SMALL, &dialog);
            small.m_onInit = [&] { EXPECT_EQ(std::this_thread::get_id(), here); };
            EXPECT_EQ(small.DoModal(), IDOK);
        });
        robot.WaitForWindow("Small");
        EXPECT_THROW(kImpatient.Press("Cancel", "Form"), RobotError);
        robot.Press("OK", "Small");
        worker->Wait();
        robot.Press("Cancel", "Form");
    });
}

// Handlers call out to other windows and wait for a worker that itself calls in: a lock held anywhere would stop both.
TEST(Workers, NothingIsLockedWhileCallingOut)
{
    TestDialog outer;
    TestDialog inner;
    outer.Open();
    inner.Open(IDD_SMALL);
    inner.m_answers[WM_OTHER] = [&](WPARAM wParam, LPARAM) {
        return wParam == 0 ? 1 : 1 + outer.SendMessage(WM_OTHER, wParam - 1);
    };
    outer.m_answers[WM_OTHER] = [&](WPARAM wParam, LPARAM) { return 1 + inner.SendMessage(WM_OTHER, wParam); };
    outer.m_answers[WM_ASK] = [&](WPARAM, LPARAM) {
        LRESULT answer = 0;
        const auto call = [&] {
            answer = inner.SendMessage(WM_OTHER, 3);
            outer.SetWindowText("From a worker");
        };
        Worker(call)->Wait();
        return answer;
    };
    EXPECT_EQ(outer.SendMessage(WM_ASK), 7);
    EXPECT_EQ(outer.GetWindowText(), "From a worker");
}

TEST(Workers, ACallOnAWindowThatGoesMeanwhileEnds)
{
    TestDialog dialog;
    dialog.Open();
    dialog.m_answers[WM_ASK] = [](WPARAM, LPARAM) { return 7; };
    std::atomic<bool> started = false;
    Worker worker([&started, window = dialog.m_hWnd] {
        started = true;
        EXPECT_EQ(SendMessageA(window, WM_ASK, 0, 0), 0);
    });
    while (!started)
        std::this_thread::yield();
    dialog.DestroyWindow(); // before the call can have been served
    worker->Wait();
    TestDialog standing;
    standing.Open();
    dialog.Open();
    started = false;
    Worker asking([&started, window = dialog.m_hWnd, control = standing.GetDlgItem(IDC_ACT)] {
        started = true;
        EXPECT_FALSE(GetNextDlgTabItem(window, control, FALSE));
    });
    while (!started)
        std::this_thread::yield();
    dialog.DestroyWindow();
    asking->Wait();
}

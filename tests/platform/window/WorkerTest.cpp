// Workers and windows: calls are carried to the user-interface thread, waited for, and never deadlock.
#include "TestDialog.h"

#include <thread>

TEST(Workers, CallsAreCarriedAndWaitedFor)
{
    TestDialog dialog;
    dialog.Open();
    const auto here = std::this_thread::get_id();
    std::thread::id handledOn;
    int written = 0; // plain: what the handler wrote must be seen by the worker that waited for it
    dialog.m_answers[WM_ASK] = [&](WPARAM wParam, LPARAM lParam) -> LRESULT {
        handledOn = std::this_thread::get_id();
        written = 5;
        return static_cast<LRESULT>(wParam) + lParam;
    };
    Worker worker([&] {
        EXPECT_EQ(SendMessageA(dialog.m_hWnd, WM_ASK, 30, 4), 34);
        EXPECT_EQ(written, 5);
        const HWND status = dialog.GetDlgItem(IDC_STATUS);
        EXPECT_EQ(GetDlgCtrlID(status), IDC_STATUS);
        EXPECT_EQ(GetParent(status), dialog.m_hWnd);
        EXPECT_TRUE(SetWindowTextA(status, "Busy"));
        EXPECT_EQ(GetWindowTextA(status), "Busy");
        EXPECT_FALSE(EnableWindow(status, FALSE));
        EXPECT_TRUE(EnableWindow(status, FALSE));
        EXPECT_FALSE(IsWindowEnabled(status));
        EXPECT_TRUE(ShowWindow(dialog.m_hWnd, SW_HIDE));
        EXPECT_FALSE(IsWindowVisible(status));
        EXPECT_FALSE(ShowWindow(dialog.m_hWnd, SW_SHOW));
        EXPECT_TRUE(IsWindowVisible(status));
    });
    worker.Wait();
    EXPECT_EQ(handledOn, here);
    Robot robot;
    robot.WaitUntil([&] { return robot.Text("Status") == "Busy"; }, "the worker's text");
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
    worker.Wait();
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
    worker.Wait();
    robot.WaitUntil([&] { return robot.Text("Status") == "Busy"; }, "the text");
    EXPECT_NE(shown, "Busy");
}

TEST(Workers, AMessageBoxBlocksItsWorkerAlone)
{
    TestDialog dialog;
    int handled = 0;
    dialog.m_answers[WM_ASK] = [&](WPARAM, LPARAM) { return ++handled; };
    dialog.Play([&](Robot& robot) {
        std::atomic<int> answer = 0;
        Worker worker([&] { answer = MessageBoxA(dialog.m_hWnd, "Go on?", "Ask", MB_YESNO | MB_ICONQUESTION); });
        EXPECT_EQ(robot.MessageBoxText(), "Go on?");
        EXPECT_EQ(SendMessageA(dialog.m_hWnd, WM_ASK, 0, 0), 1);
        EXPECT_EQ(answer, 0);
        robot.Answer("Yes");
        worker.Wait();
        EXPECT_EQ(answer, IDYES);
        const HWND window = dialog.m_hWnd;
        robot.Press("OK", "Form");
        robot.WaitForNoWindow("Form");
        Worker late([&] { answer = MessageBoxA(window, "Go on?", "Ask", MB_YESNO); });
        late.Wait();
        EXPECT_EQ(answer, 0);
    });
}

TEST(Workers, ADialogOfAWorkerLivesOnTheUserInterfaceThread)
{
    TestDialog dialog;
    const auto here = std::this_thread::get_id();
    dialog.Play([&](Robot& robot) {
        std::thread::id initialised;
        INT_PTR result = 0;
        Worker worker([&] {
            TestDialog small(IDD_SMALL, &dialog);
            small.m_onInit = [&] { initialised = std::this_thread::get_id(); };
            result = small.DoModal();
        });
        robot.WaitForWindow("Small");
        EXPECT_THROW(kImpatient.Press("Cancel", "Form"), RobotError);
        robot.Press("OK", "Small");
        worker.Wait();
        EXPECT_EQ(result, IDOK);
        EXPECT_EQ(initialised, here);
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
    int depth = 0;
    inner.m_answers[WM_OTHER] = [&](WPARAM wParam, LPARAM) {
        ++depth;
        return wParam == 0 ? 1 : 1 + outer.SendMessage(WM_OTHER, wParam - 1);
    };
    outer.m_answers[WM_OTHER] = [&](WPARAM wParam, LPARAM) { return 1 + inner.SendMessage(WM_OTHER, wParam); };
    outer.m_answers[WM_ASK] = [&](WPARAM, LPARAM) {
        LRESULT answer = 0;
        Worker worker([&] {
            answer = inner.SendMessage(WM_OTHER, 3);
            EXPECT_TRUE(IsWindow(outer.m_hWnd));
            outer.SetWindowText("From a worker");
        });
        worker.Wait();
        return answer;
    };
    EXPECT_EQ(outer.SendMessage(WM_ASK), 7);
    EXPECT_EQ(depth, 4);
    EXPECT_EQ(outer.GetWindowText(), "From a worker");
}

TEST(Workers, ACallOnAWindowThatGoesMeanwhileEnds)
{
    TestDialog dialog;
    dialog.Open();
    int reached = 0;
    dialog.m_answers[WM_ASK] = [&](WPARAM, LPARAM) { return ++reached; };
    const HWND window = dialog.m_hWnd;
    std::atomic<bool> started = false;
    LRESULT answer = -1;
    Worker worker([&] {
        started = true;
        answer = SendMessageA(window, WM_ASK, 0, 0);
    });
    while (!started)
        std::this_thread::yield();
    dialog.DestroyWindow(); // before the call can have been served
    worker.Wait();
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(reached, 0);
}

TEST(Workers, ManyCallAtOnce)
{
    constexpr int kCalls = 200;
    TestDialog dialog;
    dialog.Open();
    int sum = 0;
    dialog.m_answers[WM_ASK] = [&](WPARAM, LPARAM) { return ++sum; };
    const auto body = [&] {
        for (int call = 0; call < kCalls; ++call)
        {
            dialog.SendMessage(WM_ASK);
            SetWindowTextA(dialog.GetDlgItem(IDC_STATUS), std::to_string(call));
        }
    };
    Worker one(body);
    Worker two(body);
    one.Wait();
    two.Wait();
    EXPECT_EQ(sum, 2 * kCalls);
    Robot robot;
    robot.WaitUntil([&] { return robot.Text("Status") == std::to_string(kCalls - 1); }, "the last text");
}

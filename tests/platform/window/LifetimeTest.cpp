// What a window may rely on from its creation to its destruction, and what nobody can do to it after that.
#include "TestDialog.h"

using Log = std::vector<std::string>;

namespace
{

void ServeEverythingPosted()
{
    TestDialog marker;
    marker.Create(IDD_SMALL);
    bool reached = false;
    marker.m_answers[WM_ASK] = [&](WPARAM, LPARAM) { return reached = true; };
    marker.PostMessage(WM_ASK);
    ASSERT_TRUE(ServeMessagesUntil([&] { return reached; }));
}

} // namespace

TEST(Lifetime, AWindowOutlivesTheMessageItHandles)
{
    Log log;
    auto* dialog = new TestDialog; // deletes itself
    dialog->m_onGone = [&log, dialog] {
        log.push_back("gone");
        delete dialog;
    };
    dialog->m_answers[WM_DESTROY] = [&](WPARAM, LPARAM) { return log.push_back("destroy"), 0; };
    dialog->m_answers[WM_OTHER] = [&](WPARAM, LPARAM) {
        dialog->DestroyWindow();
        log.push_back(IsWindow(dialog->m_hWnd) ? "stands" : "destroyed");
        return 7;
    };
    dialog->m_answers[WM_ASK] = [&](WPARAM, LPARAM) {
        const LRESULT answer = dialog->SendMessage(WM_OTHER);
        log.push_back(dialog->m_name + " is there");
        return answer;
    };
    dialog->Open();
    const HWND window = dialog->m_hWnd;

    EXPECT_EQ(SendMessageA(window, WM_ASK, 0, 0), 7);
    EXPECT_EQ(log, (Log{"destroy", "destroyed", "as made is there", "gone"}));
    EXPECT_FALSE(IsWindow(window));
}

// Else the message that waits for them, and so the window, would never end.
TEST(Lifetime, WhatStandsOverAWindowGoesWithIt)
{
    TestDialog dialog;
    const std::tuple<const char*, std::function<INT_PTR()>, INT_PTR> rows[] = {
        {"Box", [&] { return MessageBoxA(dialog.m_hWnd, "Go on?", "Box", MB_YESNO); }, IDNO},
        {"Small", [&] { return TestDialog(IDD_SMALL, &dialog).DoModal(); }, -1},
    };
    for (const auto& [title, open, expected] : rows)
    {
        INT_PTR answer = 0;
        dialog.m_onAct = [&answer, &open] { answer = open(); };
        dialog.Play([&dialog, title](Robot& robot) {
            robot.Press("Act");
            robot.WaitForWindow(title);
            dialog.DestroyWindow();
            robot.WaitForNoWindow(title);
        });
        EXPECT_EQ(answer, expected) << title;
    }
}

TEST(Lifetime, NothingReachesAWindowThatHasGone)
{
    int reached = 0;
    TestDialog dialog;
    dialog.Open();
    for (const UINT message : {WM_ASK, WM_TIMER, WM_CLOSE, WM_COMMAND})
        dialog.m_answers[message] = [&](WPARAM, LPARAM) { return ++reached; };
    const HWND window = dialog.m_hWnd;
    const HWND button = dialog.GetDlgItem(IDC_ACT);
    EXPECT_TRUE(PostMessageA(window, WM_ASK, 0, 0));
    EXPECT_EQ(dialog.SetTimer(3, 0), 3u);
    dialog.DestroyWindow();
    reached = 0;
    EXPECT_FALSE(PostMessageA(window, WM_ASK, 0, 0) || SendMessageA(window, WM_ASK, 0, 0));
    EXPECT_FALSE(SendMessageA(button, BM_CLICK, 0, 0) || SetTimer(window, 4, 0) || SetWindowTextA(window, "x"));
    EXPECT_FALSE(IsWindowVisible(window) || DestroyWindow(window) || CWnd::FromHandle(window));
    EXPECT_EQ(GetWindowTextA(window), "");
    ServeEverythingPosted();
    EXPECT_EQ(reached, 0);
}

TEST(Lifetime, TimersDieWithTheirWindowAlone)
{
    int dead = 0;
    int live = 0;
    TestDialog survivor;
    survivor.Open();
    survivor.m_answers[WM_TIMER] = [&](WPARAM id, LPARAM) { return live += id == 2; };
    {
        TestDialog victim;
        victim.Open();
        victim.m_answers[WM_TIMER] = [&](WPARAM, LPARAM) { return ++dead; };
        victim.SetTimer(1, 1);
        survivor.SetTimer(2, 5);
        EXPECT_FALSE(survivor.KillTimer(9));
        EXPECT_TRUE(ServeMessagesUntil([&] { return dead > 1 && live > 0; }));
    }
    dead = live = 0;
    EXPECT_TRUE(ServeMessagesUntil([&] { return live > 4; }));
    EXPECT_EQ(dead, 0);
    EXPECT_TRUE(survivor.KillTimer(2));
}

TEST(Lifetime, AStaleHandleIsNeverANewerWindow)
{
    HWND first;
    {
        TestDialog dialog;
        dialog.Open();
        first = dialog.m_hWnd;
        EXPECT_TRUE(CButton().SubclassDlgItem(IDC_ACT, &dialog)); // a control is only let go of
        EXPECT_TRUE(IsWindow(dialog.GetDlgItem(IDC_ACT)));
    }
    for (int round = 0; round < 50; ++round)
    {
        TestDialog dialog;
        dialog.Create(IDD_SMALL);
        ASSERT_NE(dialog.m_hWnd, first);
        ASSERT_FALSE(IsWindow(first));
    }
    EXPECT_FALSE(IsWindow({}) || IsWindow({~0ull}));
}

TEST(Lifetime, HandlesCanBeAskedFromAnyThreadWhileWindowsComeAndGo)
{
    TestDialog standing;
    standing.Open();
    const HWND always = standing.m_hWnd;
    std::atomic<std::uint64_t> passing = 0;
    std::atomic<bool> over = false;
    const auto ask = [&] {
        for (bool stands = true; !over; stands = IsWindow(always))
        {
            EXPECT_TRUE(stands);
            const HWND window{passing};
            SendMessageA(window, WM_ASK, 0, 0);
            SetWindowTextA(GetDlgItem(window, IDC_STATUS), "x");
        }
    };
    Worker one(ask);
    Worker two(ask);
    for (int round = 0; round < 60; ++round)
    {
        TestDialog dialog;
        dialog.Create(IDD_FORM);
        passing = dialog.m_hWnd.value;
        ServeEverythingPosted();
    }
    over = true;
    one->Wait();
    two->Wait();
}

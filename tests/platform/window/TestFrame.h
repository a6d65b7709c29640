// A frame with bars and a splitter of two panes, which have a tree and a list each.
#pragma once

#include "TestDialog.h"

#include "platform/window/FrameWnd.h"
#include "platform/window/SplitterWnd.h"
#include "platform/window/TreeCtrl.h"
#include "platform/window/View.h"

class TestView : public CView
{
public:
    CTreeCtrl m_tree;
    CListCtrl m_list;
    std::function<LRESULT(NMHDR&)> m_onNotify = [](NMHDR&) { return 0; };

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_NOTIFY)
            return m_onNotify(*reinterpret_cast<NMHDR*>(lParam));
        if (message == WM_CREATE && (!m_tree.Create({}, this, 1) || !m_list.Create({}, this, 2)))
            return -1;
        if (message == WM_SIZE)
        {
            const POINT size = SizeFromLParam(lParam);
            m_tree.MoveWindow({0, 20, size.x, size.y / 2});
            m_list.MoveWindow({0, size.y / 2, size.x, size.y});
        }
        return CView::WindowProc(message, wParam, lParam);
    }

protected:
    void OnDraw(CDC&) override
    {}
};

// Of two halves.
class TestSplitter : public CSplitterWnd
{
public:
    void RecalcLayout() override
    {
        RECT client;
        GetClientRect(&client);
        const LONG middle = client.right / 2;
        MovePane(0, 0, {0, 0, middle, client.bottom});
        MovePane(0, 1, {middle, 0, client.right, client.bottom});
    }
};

class TestFrame : public CFrameWnd
{
public:
    // Made and on show, with the title "Frame".
    static TestFrame* Open()
    {
        auto* frame = new TestFrame;
        EXPECT_TRUE(frame->LoadFrame(IDR_FRAME));
        frame->SetWindowText("Frame");
        frame->ShowWindow(SW_SHOW);
        frame->SetForegroundWindow();
        return frame;
    }
    TestView& Pane(int column) const
    {
        return static_cast<TestView&>(*m_splitter.GetPane(0, column));
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const LRESULT answer = CFrameWnd::WindowProc(message, wParam, lParam);
        return message == WM_CREATE && answer != -1 && !CreateBars() ? -1 : answer;
    }

protected:
    const MessageMap& GetMessageMap() const override
    {
        static const MessageMap map{&CFrameWnd::StaticMessageMap(), {OnCommand(ID_FIRST, &TestFrame::OnHandled)}};
        return map;
    }
    BOOL OnCreateClient() override
    {
        return m_splitter.CreateStatic(this, 1, 2) &&
               m_splitter.CreateView(0, 0, std::make_unique<TestView>(), 200, 0) &&
               m_splitter.CreateView(0, 1, std::make_unique<TestView>(), 0, 0);
    }

private:
    void OnHandled()
    {}
    bool CreateBars()
    {
        constexpr UINT kIndicators[] = {ID_SEPARATOR, ID_INDICATOR_CAPS};
        return m_toolBar.Create(this, 101) && m_toolBar.LoadToolBar(IDR_FRAME) && m_statusBar.Create(this) &&
               m_statusBar.SetIndicators(kIndicators);
    }

    TestSplitter m_splitter;
    CToolBar m_toolBar;
    CStatusBar m_statusBar;
};

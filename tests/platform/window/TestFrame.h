// A frame with bars and a splitter of two panes, which have a tree and a list each.
#pragma once

#include "TestDialog.h"

#include "platform/window/DeviceContext.h"
#include "platform/window/FrameWnd.h"
#include "platform/window/ImageList.h"
#include "platform/window/SplitterWnd.h"
#include "platform/window/TreeCtrl.h"
#include "platform/window/View.h"

// Held by every frame and view, to find what was left behind.
inline const auto g_living = std::make_shared<int>();

class TestView : public CView
{
public:
    explicit TestView(bool fails = false) : m_fails(fails)
    {}

    CTreeCtrl m_tree;
    CListCtrl m_list;
    POINT m_size; // as WM_SIZE told it
    std::function<void(NMHDR&)> m_onNotify;
    std::function<LRESULT(const NMTREEVIEW&)> m_answer; // to the tree

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_NOTIFY && m_onNotify)
            m_onNotify(*reinterpret_cast<NMHDR*>(lParam));
        if (message == WM_NOTIFY && m_answer && wParam == 1)
            return m_answer(*reinterpret_cast<NMTREEVIEW*>(lParam));
        if (message == WM_CREATE && (m_fails || !m_tree.Create({}, this, 1) || !m_list.Create({}, this, 2)))
            return -1;
        if (message == WM_SIZE)
        {
            m_size = SizeFromLParam(lParam);
            m_tree.MoveWindow({0, 20, m_size.x, m_size.y / 2});
            m_list.MoveWindow({0, m_size.y / 2, m_size.x, m_size.y});
        }
        return CView::WindowProc(message, wParam, lParam);
    }

protected:
    void OnDraw(CDC&) override
    {}

private:
    const bool m_fails;
    const std::shared_ptr<int> m_living = g_living;
};

// What is asked for to the first pane, the rest to the second.
class TestSplitter : public CSplitterWnd
{
public:
    void RecalcLayout() override
    {
        RECT client;
        GetClientRect(&client);
        const LONG bottom = client.bottom - m_cyBorder;
        const LONG bar = m_cxBorder + m_columns[0].nIdealSize;
        m_rows[0].nCurSize = bottom - m_cyBorder;
        m_columns[0].nCurSize = m_columns[0].nIdealSize;
        m_columns[1].nCurSize = client.right - m_cxBorder - bar - m_cxSplitterGap;
        MovePane(0, 0, {m_cxBorder, m_cyBorder, bar, bottom});
        MovePane(0, 1, {bar + m_cxSplitterGap, m_cyBorder, client.right - m_cxBorder, bottom});
        InvalidateBars();
    }
};

class TestFrame : public CFrameWnd
{
public:
    enum Fault
    {
        kNone,
        kMenu,
        kClient,
        kPane,
        kToolBar,
    };

    explicit TestFrame(Fault fault = kNone) : m_fault(fault)
    {}

    TestSplitter m_splitter;
    std::function<void(UINT)> m_onCommand;

    BOOL Load()
    {
        return LoadFrame(m_fault == kMenu ? 9999 : IDR_FRAME);
    }
    // Made and on show, with the title "Frame".
    static TestFrame* Open()
    {
        auto* frame = new TestFrame;
        EXPECT_TRUE(frame->Load());
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
        if (message == WM_COMMAND && m_onCommand)
            m_onCommand(static_cast<UINT>(wParam));
        const LRESULT answer = CFrameWnd::WindowProc(message, wParam, lParam);
        return message == WM_CREATE && answer != -1 && !CreateBars() ? -1 : answer;
    }

protected:
    const MessageMap& GetMessageMap() const override
    {
        static const MessageMap map{&CFrameWnd::StaticMessageMap(),
                                    {
                                        OnCommand(ID_FIRST, &TestFrame::OnHandled),
                                        OnCommand(ID_GREYED, &TestFrame::OnHandled),
                                    }};
        return map;
    }
    BOOL OnCreateClient() override
    {
        return m_fault != kClient && m_splitter.CreateStatic(this, 1, 2) &&
               m_splitter.CreateView(0, 0, std::make_unique<TestView>(), 200, 0) &&
               m_splitter.CreateView(0, 1, std::make_unique<TestView>(m_fault == kPane), 0, 0);
    }

private:
    void OnHandled()
    {}
    bool CreateBars()
    {
        constexpr UINT kIndicators[] = {ID_SEPARATOR, ID_INDICATOR_CAPS};
        return m_toolBar.Create(this, 101) && m_toolBar.LoadToolBar(m_fault == kToolBar ? 9999 : IDR_FRAME) &&
               m_statusBar.Create(this) && m_statusBar.SetIndicators(kIndicators);
    }

    const Fault m_fault;
    CToolBar m_toolBar;
    CStatusBar m_statusBar;
    const std::shared_ptr<int> m_living = g_living;
};

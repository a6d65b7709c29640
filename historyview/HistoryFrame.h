// The window of the download history: a tree of days and pages, and a list of what is selected.
//
// It reads the history when it opens and when it has been cleared, and shows that. On the user-interface thread; it
// deletes itself with its window.
#pragma once

#include "historyview/HistorySplitter.h"

#include "platform/window/FrameWnd.h"

#include <functional>

class CHistoryDetailView;
class CHistoryTreeView;

class CHistoryFrame : public CFrameWnd
{
public:
    // `closed` is called when the user closes the window, before it goes: for whoever holds a pointer to it.
    explicit CHistoryFrame(std::function<void()> closed);

protected:
    const MessageMap& GetMessageMap() const override;
    BOOL OnCreateClient() override;

private:
    LRESULT OnCreate(WPARAM, LPARAM);
    void OnClearHistory();
    void OnExit();
    void OnClose();

    bool CreateBars();
    void ShowWhatIsThere();

    std::function<void()> m_closed;
    CToolBar m_toolBar;
    CStatusBar m_statusBar;
    CHistorySplitter m_splitter;
};

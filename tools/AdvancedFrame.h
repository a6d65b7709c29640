// The window of advanced commands, of which the album command is the only one. On the user-interface thread; it deletes
// itself with its window.
#pragma once

#include "platform/window/FrameWnd.h"

#include <functional>

class CAdvancedFrame : public CFrameWnd
{
public:
    // `closed` is called when the user closes the window, before it goes: for whoever holds a pointer to it.
    explicit CAdvancedFrame(std::function<void()> closed);

protected:
    const MessageMap& GetMessageMap() const override;

private:
    LRESULT OnCreate(WPARAM, LPARAM);
    void OnCreateAlbum();
    void OnExit();
    void OnClose();

    bool CreateBars();

    std::function<void()> m_closed;
    CToolBar m_toolBar;
    CStatusBar m_statusBar;
    HICON m_hIcon;
};

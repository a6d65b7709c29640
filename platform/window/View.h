// A child window that draws itself: a pane of a splitter or a frame.
#pragma once

#include "platform/window/Wnd.h"

class CDC;

class CView : public CWnd
{
public:
    // Makes the window as a child, shown; sends WM_CREATE, then WM_SIZE at every change of size. FALSE if it cannot be
    // made or WM_CREATE was answered with -1. The object deletes itself with its window, so it is gone
    // when a window could be made for it and WM_CREATE was answered with -1.
    BOOL Create(const RECT& area, CWnd* parent, UINT id);

protected:
    // Paints the client area; called by the default handling of WM_PAINT.
    virtual void OnDraw(CDC& dc) = 0;

    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PostNcDestroy() override;
};

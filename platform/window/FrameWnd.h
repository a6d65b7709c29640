// A top-level window with a menu, control bars at its edges, and a client window between them.
#pragma once

#include "platform/window/Wnd.h"

#include <span>

class CFrameWnd;

inline constexpr DWORD WS_OVERLAPPEDWINDOW = 0x00CF0000;

// Where control bars may dock.
inline constexpr DWORD CBRS_ALIGN_ANY = 0xF000;

// A row of buttons, each the command of a menu entry. A button's tool tip and the prompt that the status bar shows for
// it and for the menu entry are the text of the resource table with the command's number: "prompt\ntip".
class CToolBar : public CWnd
{
public:
    // At the top of the frame, with a gripper.
    BOOL Create(CFrameWnd* frame, UINT id);
    // Takes the buttons of a tool bar of the resource table. FALSE if there is none with that number.
    BOOL LoadToolBar(UINT id);
    // Lets the user move it to other edges.
    void EnableDocking(DWORD edges);
};

// The panes of CStatusBar::SetIndicators, under their published numbers; their texts are those of the resource table.
inline constexpr UINT ID_SEPARATOR = 0; // the message pane, which takes what is left
inline constexpr UINT ID_INDICATOR_CAPS = 0xE701;
inline constexpr UINT ID_INDICATOR_NUM = 0xE702;
inline constexpr UINT ID_INDICATOR_SCRL = 0xE703;

// The indicators show their text while the key is locked; where the desktop does not tell, they stay empty.
class CStatusBar : public CWnd
{
public:
    // At the bottom of the frame.
    BOOL Create(CFrameWnd* frame);
    BOOL SetIndicators(std::span<const UINT> ids);
};

// A command of its menu and its tool bars that its message map has no handler for is greyed. Made on the heap; deletes
// itself with its window. User-interface thread.
class CFrameWnd : public CWnd
{
public:
    // Makes the window, hidden, with the menu of that number. FALSE if there is no such menu or WM_CREATE was answered
    // with -1: the object is gone then, as published. (FALSE too, and nothing happens, if it has a window already.)
    BOOL LoadFrame(UINT id, DWORD style = WS_OVERLAPPEDWINDOW, CWnd* parent = nullptr);

    void EnableDocking(DWORD edges);
    // Puts the bar to its first edge.
    void DockControlBar(CToolBar* bar);

protected:
    // Makes the client window, which fills what the bars leave; called by the default handling of WM_CREATE. FALSE ends
    // the creation.
    virtual BOOL OnCreateClient();

    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PostNcDestroy() override;
};

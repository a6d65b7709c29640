// Operations on windows by handle, callable from any thread.
//
// Windows belong to the user-interface thread. A call from a worker is carried there and waited for; on a window that
// has gone it does nothing and answers 0, false, empty or the null handle. Nothing but SendMessageA, DestroyWindow and
// MessageBoxA calls back into the program, and no lock is held while it does.
#pragma once

#include "platform/window/Messages.h"

#include <string>

bool IsWindow(HWND window);
bool IsWindowVisible(HWND window); // itself and all its parents are shown
// GWL_STYLE: WS_VISIBLE for a window that is shown, whether or not its parents are; 0 for all else.
LONG GetWindowLongA(HWND window, int index);
bool IsWindowEnabled(HWND window);
bool IsIconic(HWND window);
HWND GetParent(HWND window);
// The control with a number in a dialog.
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND control);
// GW_CHILD: the first child, GW_HWNDNEXT: the next child of the same parent, in the order of their making. Dialogs and
// boxes over a window are no children here. Null after the last one.
HWND GetWindow(HWND window, UINT command);
// On the screen, in device-independent pixels, without the window manager's frame. FALSE and an empty one for a window
// that has gone.
BOOL GetWindowRect(HWND window, RECT* area);
// Within the parent's client area, or on the screen. A dialog, whose size its user cannot change, gets this one.
BOOL MoveWindow(HWND window, const RECT& area);
// From the screen to the client area of the window.
BOOL ScreenToClient(HWND window, POINT* point);

// Runs the window's handling of the message on the user-interface thread and gives its answer. From a worker
// PBM_SETPOS and PBM_SETRANGE32 do not wait: they store a word that the bar picks up at its next paint.
LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// Queues the message; FALSE for a window that has gone. A queued message dies with its window.
BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// FALSE if the window was hidden before.
BOOL ShowWindow(HWND window, int command);
// TRUE if the window was disabled before.
BOOL EnableWindow(HWND window, BOOL enable);
BOOL SetForegroundWindow(HWND window);
// A text that does not change is not set again.
BOOL SetWindowTextA(HWND window, const std::string& text);
std::string GetWindowTextA(HWND window);
BOOL DestroyWindow(HWND window);

// Gives the window the keyboard as soon as its top window is the active one. Both give the window that has it; null if
// that is none of the program's, or stands in a window that is not active.
HWND SetFocus(HWND window);
HWND GetFocus();
// The control behind, or before, this one in Tab order that Tab would lead to now, round the dialog's end; null if
// there is none but this one.
HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
// The top window of the program that the desktop has active; null if there is none.
HWND GetActiveWindow();
// The program's window, or control, that is in front there; null if there is none.
HWND WindowFromPoint(POINT point);
// Negative while VK_SHIFT or VK_CONTROL is held, as of the key that is being handled. User-interface thread.
short GetKeyState(int key);

// WM_TIMER with `id` comes every `milliseconds` until the timer is killed or its window goes. Gives the id.
UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds);
BOOL KillTimer(HWND window, UINT_PTR id);

BOOL GetCursorPos(POINT* position);
// The desktop's sound for what a box with that icon tells. Nothing on the console.
BOOL MessageBeep(UINT type);

// Shows a modal message box and waits for its answer (IDOK, IDYES, IDNO, IDCANCEL). Esc and the close box answer IDOK
// on a box with OK alone, IDCANCEL where there is such a button, and IDNO to Yes/No. With a null owner the box is
// modal to the program's active window, so it is never lost behind it. From a worker the box stands on the
// user-interface thread and blocks that worker alone.
int MessageBoxA(HWND owner, const char* text, const char* caption, UINT type);

// Which member handles which message: a table, typed by the members it names.
//
//     const MessageMap& CMainDlg::GetMessageMap() const
//     {
//         static const MessageMap map{&CDialog::StaticMessageMap(), {
//             On(WM_CLOSE, &CMainDlg::OnClose),
//             OnCommand(IDC_REFRESH, &CMainDlg::OnRefresh),
//             OnNotify(IDC_LIST, NM_RCLICK, &CMainDlg::OnListRightClick),
//         }};
//         return map;
//     }
//
// The table of the most derived class is searched first, then that of its base.
#pragma once

#include "platform/window/Messages.h"

#include <functional>
#include <vector>

class CWnd;

struct MessageEntry
{
    using Handler = std::function<LRESULT(CWnd& window, WPARAM wParam, LPARAM lParam)>;

    UINT message = 0;
    UINT code = 0; // notification code of WM_COMMAND and WM_NOTIFY
    UINT id = 0;   // command or control number of the two, else 0
    Handler handler;
};

struct MessageMap
{
    const MessageMap* base = nullptr;
    std::vector<MessageEntry> entries;

    // The entry for a message, own before inherited; null if there is none.
    const MessageEntry* Find(UINT message, UINT code, UINT id) const;
};

// A handler that takes what the message carries.
template <class Window>
MessageEntry On(UINT message, LRESULT (Window::*member)(WPARAM, LPARAM))
{
    return {message, 0, 0, [member](CWnd& window, WPARAM wParam, LPARAM lParam) {
                return (static_cast<Window&>(window).*member)(wParam, lParam);
            }};
}

// A handler that takes nothing and answers 0: WM_CLOSE, WM_PAINT, WM_DESTROY.
template <class Window>
MessageEntry On(UINT message, void (Window::*member)())
{
    return {message, 0, 0, [member](CWnd& window, WPARAM, LPARAM) -> LRESULT {
                (static_cast<Window&>(window).*member)();
                return 0;
            }};
}

// A notification that the control `id` sends as WM_COMMAND: EN_CHANGE.
template <class Window>
MessageEntry OnControl(UINT code, UINT id, void (Window::*member)())
{
    return {WM_COMMAND, code, id, [member](CWnd& window, WPARAM, LPARAM) -> LRESULT {
                (static_cast<Window&>(window).*member)();
                return 0;
            }};
}

// The command of a button or a menu entry.
template <class Window>
MessageEntry OnCommand(UINT id, void (Window::*member)())
{
    return OnControl(BN_CLICKED, id, member);
}

// A notification of the control `id`.
template <class Window>
MessageEntry OnNotify(UINT id, UINT code, LRESULT (Window::*member)(NMHDR&))
{
    return {WM_NOTIFY, code, id, [member](CWnd& window, WPARAM, LPARAM lParam) {
                return (static_cast<Window&>(window).*member)(*reinterpret_cast<NMHDR*>(lParam));
            }};
}

template <class Window>
MessageEntry OnTimer(void (Window::*member)(UINT_PTR id))
{
    return {WM_TIMER, 0, 0, [member](CWnd& window, WPARAM wParam, LPARAM) -> LRESULT {
                (static_cast<Window&>(window).*member)(wParam);
                return 0;
            }};
}

// `id` comes unmasked: the low four bits are the system's own.
template <class Window>
MessageEntry OnSysCommand(void (Window::*member)(UINT id, LPARAM lParam))
{
    return {WM_SYSCOMMAND, 0, 0, [member](CWnd& window, WPARAM wParam, LPARAM lParam) -> LRESULT {
                (static_cast<Window&>(window).*member)(static_cast<UINT>(wParam), lParam);
                return 0;
            }};
}

// A window of the program: a handle, and the object that handles its messages.
//
// Objects live on the user-interface thread: they are made, attached and destroyed there. The members that only pass a
// handle to an operation of Calls.h (texts, visibility, SendMessage, timers) may be called from a worker, as long as
// the object lives.
//
// Guarantees: a window outlives the message that it is handling; nothing reaches it after its destruction; its timers
// and queued messages die with it.
#pragma once

#include "platform/window/Calls.h"
#include "platform/window/MessageMap.h"

#include <memory>
#include <string>

class CDataExchange;
class CMenu;
class WindowRecord;

class CWnd
{
public:
    CWnd() = default;
    // Destroys the window if it still stands and the object made it; a control is only let go of.
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    HWND m_hWnd;

    HWND GetSafeHwnd() const
    {
        return m_hWnd;
    }
    // The object that is attached to a window; null if none is. User-interface thread only.
    static CWnd* FromHandle(HWND window);

    // Makes a child that draws itself in answer to WM_PAINT, shown, below its siblings; gets WM_SIZE at every change of
    // size, but no WM_CREATE. `name` is for assistive technology. FALSE if it cannot be made.
    BOOL Create(const std::string& name, const RECT& area, CWnd* parent, UINT id);
    // Attaches this object to a control of a dialog, whose messages it gets first.
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    // Lets go of the window without destroying it.
    HWND Detach();

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    void SetWindowText(const std::string& text) const;
    std::string GetWindowText() const;
    BOOL ShowWindow(int command) const;
    BOOL EnableWindow(BOOL enable = TRUE) const;
    bool IsWindowVisible() const;
    bool IsWindowEnabled() const;
    bool IsIconic() const;
    BOOL SetForegroundWindow() const;
    HWND GetDlgItem(int id) const;
    BOOL DestroyWindow();
    HWND SetFocus() const;

    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds) const;
    BOOL KillTimer(UINT_PTR id) const;

    // Size of the client area, in device-independent pixels, with left and top 0.
    void GetClientRect(RECT* area) const;
    // On the screen; see Calls.h.
    void GetWindowRect(RECT* area) const;
    // From the screen to this window's client area.
    void ScreenToClient(RECT* area) const;
    // See Calls.h.
    void MoveWindow(const RECT& area) const;
    // Asks for the client area, or a part of it, to be painted.
    void Invalidate() const;
    void InvalidateRect(const RECT& area) const;
    // Over `other`, or over the parent, or in the middle of the screen.
    void CenterWindow(CWnd* other = nullptr);
    // Gives the icon that was set before.
    HICON SetIcon(HICON icon, BOOL big);
    // The menu of the window's system entries, to which the program appends its own; see CMenu. Entries come back as
    // WM_SYSCOMMAND. `revert` restores the first state. Null for a window without one.
    CMenu* GetSystemMenu(BOOL revert);

    // FALSE moves members into controls, TRUE the other way; see DoDataExchange. False if a check failed.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    int MessageBox(const std::string& text, const std::string& caption = {}, UINT type = MB_OK) const;

    // The whole handling of one message; called by the layer.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

protected:
    // Called by SubclassDlgItem, once this object has the window.
    virtual void PreSubclassWindow();
    virtual const MessageMap& GetMessageMap() const;
    static const MessageMap& StaticMessageMap(); // the end of every chain, empty
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // The default handling of the message that is being handled, with its own parameters.
    LRESULT Default();
    // Binds members to controls, through the DDX_ functions of DataExchange.h.
    virtual void DoDataExchange(CDataExchange* exchange);
    // The very last call for a window that has gone; an object that lives with its window deletes itself here.
    virtual void PostNcDestroy();

private:
    friend class WindowRecord;

    std::weak_ptr<WindowRecord> m_record; // a window that has gone may still hold on to this object
};

// One window behind its handle: its place among the others, its text, the object that handles its messages, and the
// widget that shows it.
//
// Life of a window: Make, messages, Destroy. Destroy sends WM_DESTROY to the window and to all it owns; then their
// handles die and nothing reaches them any more. What still runs in them returns first; only then they are finished,
// children before parents: the object is let go of with PostNcDestroy as the very last call, and the widget deleted.
#pragma once

#include "platform/window/Messages.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

class CWnd;
class ModalWait;
class ProgressWords;
class QTimer;
class WindowPeer;
class WindowWatch;

class WindowRecord : public std::enable_shared_from_this<WindowRecord>
{
public:
    // User-interface thread. `parent` is null for a window of its own; a dialog of another window is its child too.
    static std::shared_ptr<WindowRecord> Make(WindowPeer& peer, std::shared_ptr<WindowRecord> parent, int id,
                                              std::string text);

    // --- any thread ---

    HWND Handle() const
    {
        return m_handle;
    }
    int Id() const
    {
        return m_id;
    }
    HWND Parent() const;
    HWND Child(int id) const;
    std::vector<HWND> Children() const;
    std::string Text() const;
    // On the user-interface thread the text shows at once, from a worker within a frame.
    void SetText(const std::string& text);
    bool IsProgress() const
    {
        return m_progress != nullptr;
    }
    // PBM_SETPOS, PBM_SETRANGE32 or PBM_GETPOS to a progress bar; it shows as a text does.
    LRESULT AnswerProgress(UINT message, WPARAM wParam, LPARAM lParam);

    // --- user-interface thread ---

    // Null once the window is finished.
    WindowPeer* Peer() const
    {
        return m_peer;
    }
    const std::shared_ptr<WindowRecord>& Owner() const
    {
        return m_parent;
    }
    CWnd* Window() const
    {
        return m_window;
    }
    bool IsGone() const
    {
        return m_gone;
    }
    void EnableProgress();
    // Before anyone knows the window.
    void SetWatch(std::shared_ptr<WindowWatch> watch);
    // Brings the widget up to date.
    void Show();
    // Hides the widget; an active window hands over to the one above it.
    void Hide();
    // The user changed the text in the widget.
    void TextEdited(std::string text);

    // `made`: the window goes with the object.
    void Attach(CWnd& window, bool made);
    void Detach();
    bool MadeByWindow() const
    {
        return m_made;
    }
    // Ends with -1 when the window goes, and is told when it is finished.
    void SetModal(std::shared_ptr<ModalWait> modal);

    // Handling of a message, 0 once the window has gone.
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam);
    // The same for events of the toolkit, through which no exception may pass.
    LRESULT SendFromToolkit(UINT message, WPARAM wParam, LPARAM lParam);
    // The default handling of the message in hand.
    LRESULT DefaultOfCurrent();
    // WM_COMMAND of this control to itself, as OCM_COMMAND, and to its parent.
    void NotifyCommand(UINT code);
    // WM_NOTIFY to the parent; gives its answer.
    LRESULT NotifyParent(NMHDR& head);

    void SetTimer(UINT_PTR id, UINT milliseconds);
    bool KillTimer(UINT_PTR id);

    void Destroy();

private:
    struct Message
    {
        UINT message = 0;
        WPARAM wParam = 0;
        LPARAM lParam = 0;
    };
    class Passage;
    struct TimerEnd
    {
        void operator()(QTimer* timer) const;
    };

    WindowRecord(WindowPeer& peer, std::shared_ptr<WindowRecord> parent, int id, std::string text);
    void AddChild(HWND child, int id);
    void RemoveChild(HWND child);
    // Has Show called at once or within a frame.
    void RequestShow();
    void Condemn(std::vector<std::shared_ptr<WindowRecord>>& condemned);
    void Vanish();
    void EndWaits();
    void Finish();
    void LetGo();
    // Gives the object, null if there is none.
    CWnd* LetGoOfObject();

    HWND m_handle;
    const std::shared_ptr<WindowRecord> m_parent;
    const int m_id;
    std::unique_ptr<ProgressWords> m_progress; // null for all but progress bars
    std::shared_ptr<WindowWatch> m_watch;      // mostly null
    std::atomic<bool> m_showRequested = false;

    mutable std::mutex m_mutex; // guards the next three; never held while calling out
    std::string m_text;
    bool m_textChanged = true;
    std::vector<std::pair<int, HWND>> m_children;

    // User-interface thread.
    WindowPeer* m_peer;
    CWnd* m_window = nullptr;
    bool m_made = false;
    bool m_destroying = false;
    bool m_gone = false;
    int m_depth = 0; // messages in hand here and in windows below
    Message m_current;
    std::map<UINT_PTR, std::unique_ptr<QTimer, TimerEnd>> m_timers;
    std::vector<std::shared_ptr<WindowRecord>> m_condemned; // of the window that Destroy was called for
    std::shared_ptr<ModalWait> m_modal;
};

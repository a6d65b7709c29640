#include "platform/window/WindowRecord_p.h"

#include "platform/window/Desktop_p.h"
#include "platform/window/FrameClock_p.h"
#include "platform/window/MessageBox_p.h"
#include "platform/window/ModalWait_p.h"
#include "platform/window/ProgressWords_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/WinApp.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/WindowWatch_p.h"
#include "platform/window/Wnd.h"

#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <exception>

namespace
{

// The desktop's shortest timer.
constexpr UINT kShortestTimer = 10;

void ReportException(const char* where)
{
    try
    {
        throw;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "unhandled exception in %s: %s\n", where, error.what());
    }
    catch (...)
    {
        std::fprintf(stderr, "unhandled exception in %s\n", where);
    }
}

// The object of the main window may go with its window.
void ForgetMainWindow(const CWnd* window)
{
    CWinApp* application = AfxGetApp();
    if (application && application->m_pMainWnd == window)
        application->m_pMainWnd = nullptr;
}

} // namespace

// A message in hand: it keeps the window and all windows above it from being finished.
class WindowRecord::Passage
{
public:
    Passage(WindowRecord& record, Message message)
        : m_record(record.shared_from_this()), m_before(std::exchange(record.m_current, message))
    {
        for (WindowRecord* r = m_record.get(); r; r = r->m_parent.get())
            ++r->m_depth;
    }
    ~Passage()
    {
        m_record->m_current = m_before;
        for (WindowRecord* r = m_record.get(); r; r = r->m_parent.get())
        {
            if (--r->m_depth == 0)
                r->Finish();
        }
    }
    Passage(const Passage&) = delete;
    Passage& operator=(const Passage&) = delete;

private:
    std::shared_ptr<WindowRecord> m_record;
    Message m_before;
};

void WindowRecord::TimerEnd::operator()(QTimer* timer) const
{
    // It may be the timer that is just being told.
    timer->stop();
    timer->disconnect();
    timer->deleteLater();
}

WindowRecord::WindowRecord(WindowPeer& peer, std::shared_ptr<WindowRecord> parent, int id, std::string text)
    : m_parent(std::move(parent)), m_id(id), m_text(std::move(text)), m_peer(&peer)
{}

std::shared_ptr<WindowRecord> WindowRecord::Make(WindowPeer& peer, std::shared_ptr<WindowRecord> parent, int id,
                                                 std::string text)
{
    const std::shared_ptr<WindowRecord> record(new WindowRecord(peer, std::move(parent), id, std::move(text)));
    record->m_handle = WindowTable::Get().Add(record);
    if (record->m_parent)
        record->m_parent->AddChild(record->m_handle, id);
    peer.SetRecord(record);
    return record;
}

HWND WindowRecord::Parent() const
{
    return m_parent ? m_parent->m_handle : HWND();
}

HWND WindowRecord::Child(int id) const
{
    const std::lock_guard lock(m_mutex);
    for (const auto& [childId, child] : m_children)
    {
        if (childId == id)
            return child;
    }
    return {};
}

std::vector<HWND> WindowRecord::Children() const
{
    std::vector<HWND> children;
    const std::lock_guard lock(m_mutex);
    for (const auto& entry : m_children)
        children.push_back(entry.second);
    return children;
}

void WindowRecord::AddChild(HWND child, int id)
{
    const std::lock_guard lock(m_mutex);
    m_children.emplace_back(id, child);
}

void WindowRecord::RemoveChild(HWND child)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_children, [child](const auto& entry) { return entry.second == child; });
}

std::string WindowRecord::Text() const
{
    const std::lock_guard lock(m_mutex);
    return m_text;
}

void WindowRecord::SetText(const std::string& text)
{
    if (m_watch && text != Text())
        m_watch->OnTextChanges(*this, text);
    {
        const std::lock_guard lock(m_mutex);
        if (m_text == text)
            return;
        m_text = text;
        m_textChanged = true;
    }
    RequestShow();
}

void WindowRecord::TextEdited(std::string text)
{
    const std::lock_guard lock(m_mutex);
    m_text = std::move(text);
    m_textChanged = false;
}

void WindowRecord::EnableProgress()
{
    m_progress = std::make_unique<ProgressWords>();
}

void WindowRecord::SetWatch(std::shared_ptr<WindowWatch> watch)
{
    m_watch = std::move(watch);
}

LRESULT WindowRecord::AnswerProgress(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_watch)
        m_watch->OnBarChanges(message, wParam);
    const LRESULT answer = m_progress->Answer(message, wParam, lParam);
    if (message != PBM_GETPOS)
        RequestShow();
    return answer;
}

void WindowRecord::RequestShow()
{
    if (IsDesktopThread() && !IsCarriedCall())
        Show();
    else if (FrameClock* clock = GetFrameClock(); clock && !m_showRequested.exchange(true))
        clock->Request(weak_from_this());
}

void WindowRecord::Show()
{
    // Taken back first: what a worker stores from here on asks anew.
    m_showRequested.exchange(false);
    if (!m_peer)
        return;
    std::string text;
    bool changed = false;
    {
        const std::lock_guard lock(m_mutex);
        changed = std::exchange(m_textChanged, false);
        if (changed)
            text = m_text;
    }
    if (changed)
        m_peer->ShowText(ToolkitText(text));
    if (m_progress)
        m_peer->ShowProgress(*m_progress);
}

void WindowRecord::Attach(CWnd& window, bool made)
{
    m_window = &window;
    m_made = made;
    window.m_hWnd = m_handle;
    window.m_record = weak_from_this();
}

void WindowRecord::Detach()
{
    LetGoOfObject();
    m_made = false;
}

CWnd* WindowRecord::LetGoOfObject()
{
    CWnd* window = std::exchange(m_window, nullptr);
    if (window)
    {
        window->m_hWnd = {};
        window->m_record.reset();
    }
    return window;
}

void WindowRecord::SetModal(std::shared_ptr<ModalWait> modal)
{
    m_modal = std::move(modal);
}

LRESULT WindowRecord::Send(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_gone)
        return 0;
    const Passage passage(*this, {message, wParam, lParam});
    return m_window ? m_window->WindowProc(message, wParam, lParam) : m_peer->Default(message, wParam, lParam);
}

LRESULT WindowRecord::SendFromToolkit(UINT message, WPARAM wParam, LPARAM lParam)
{
    try
    {
        return Send(message, wParam, lParam);
    }
    catch (...)
    {
        ReportException("a message handler");
        return 0;
    }
}

LRESULT WindowRecord::DefaultOfCurrent()
{
    const Message current = m_current;
    return m_window ? m_window->DefWindowProc(current.message, current.wParam, current.lParam) : 0;
}

void WindowRecord::NotifyCommand(UINT code)
{
    const auto self = shared_from_this();
    const WPARAM command = static_cast<WPARAM>(m_id & 0xFFFF) | code << 16;
    if (!SendFromToolkit(OCM_COMMAND, command, ToLParam(m_handle)) && !m_gone && m_parent)
        m_parent->SendFromToolkit(WM_COMMAND, command, ToLParam(m_handle));
}

LRESULT WindowRecord::NotifyParent(NMHDR& head)
{
    head.hwndFrom = m_handle;
    head.idFrom = static_cast<UINT_PTR>(m_id);
    return m_parent ? m_parent->SendFromToolkit(WM_NOTIFY, head.idFrom, reinterpret_cast<LPARAM>(&head)) : 0;
}

void WindowRecord::SetTimer(UINT_PTR id, UINT milliseconds)
{
    auto& timer = m_timers[id];
    timer.reset(new QTimer);
    timer->callOnTimeout([this, id] { SendFromToolkit(WM_TIMER, id, 0); });
    timer->start(static_cast<int>(std::clamp<UINT>(milliseconds, kShortestTimer, INT32_MAX)));
}

bool WindowRecord::KillTimer(UINT_PTR id)
{
    return m_timers.erase(id) > 0;
}

void WindowRecord::Destroy()
{
    if (m_destroying)
        return;
    const auto self = shared_from_this();
    std::vector<std::shared_ptr<WindowRecord>> condemned;
    Condemn(condemned);
    for (const auto& record : condemned)
        record->Vanish();
    m_condemned = std::move(condemned);
    if (m_depth == 0)
        Finish();
}

void WindowRecord::Condemn(std::vector<std::shared_ptr<WindowRecord>>& condemned)
{
    if (m_destroying)
        return;
    m_destroying = true;
    SendFromToolkit(WM_DESTROY, 0, 0);
    condemned.push_back(shared_from_this());
    for (const HWND window : Children())
    {
        if (const auto child = WindowTable::Get().Find(window))
            child->Condemn(condemned);
    }
}

void WindowRecord::Vanish()
{
    if (m_watch)
        m_watch->OnWindowGoes(*this);
    m_gone = true;
    WindowTable::Get().Remove(m_handle);
    if (m_parent)
        m_parent->RemoveChild(m_handle);
    m_timers.clear();
    EndWaits();
    Hide();
}

// What waits in a message of a window above would keep that one, and so this one, from being finished.
void WindowRecord::EndWaits()
{
    if (m_modal)
        m_modal->End(-1);
    const QWidget& widget = m_peer->Widget();
    if (widget.isWindow())
        DismissMessageBoxes(&widget);
}

void WindowRecord::Hide()
{
    QWidget& widget = m_peer->Widget();
    // The toolkit's own platforms leave the focus nowhere when an active window hides.
    QWidget* above = widget.parentWidget();
    const bool handOver = widget.isWindow() && widget.isActiveWindow() && above && above->isVisible();
    widget.hide();
    if (handOver)
        above->activateWindow();
}

void WindowRecord::Finish()
{
    const auto condemned = std::exchange(m_condemned, {});
    for (auto record = condemned.rbegin(); record != condemned.rend(); ++record)
        (*record)->LetGo();
}

void WindowRecord::LetGo()
{
    const auto modal = std::move(m_modal);
    QWidget& widget = std::exchange(m_peer, nullptr)->Widget();
    // The toolkit may be in one of its events still.
    widget.deleteLater();
    if (CWnd* window = LetGoOfObject())
    {
        ForgetMainWindow(window);
        try
        {
            window->PostNcDestroy();
        }
        catch (...)
        {
            ReportException("PostNcDestroy");
        }
    }
    if (modal)
        modal->SetGone();
}

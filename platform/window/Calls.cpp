#include "platform/window/Calls.h"

#include "platform/window/Creation_p.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/KeyFilter_p.h"
#include "platform/window/ProgressWords_p.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>
#include <limits>

namespace
{

std::shared_ptr<WindowRecord> Find(HWND window)
{
    return WindowTable::Get().Find(window);
}

// Runs on the user-interface thread with the record of a window that stands; else the answer is the type's zero, and
// nobody is waited for.
template <class Action>
auto With(HWND window, Action action)
{
    decltype(action(std::declval<WindowRecord&>())) answer{};
    if (!Find(window))
        return answer;
    RunOnDesktop([&] {
        if (const auto record = Find(window))
            answer = action(*record);
    });
    return answer;
}

template <class Action>
auto WithWidget(HWND window, Action action)
{
    return With(window, [&](WindowRecord& record) { return action(record.Peer()->Widget()); });
}

// Whether it is disabled itself, whatever its parents are.
bool IsEnabled(const QWidget& widget)
{
    return widget.isWindow() ? widget.isEnabled() : widget.isEnabledTo(widget.parentWidget());
}

bool HangsOn(const QWidget* window, const QWidget& owner)
{
    while (window && window != &owner)
        window = window->parentWidget();
    return window != nullptr;
}

// Whether a modal window stands over it, or over one that hangs on it.
bool IsBlocked(const QWidget& window)
{
    const auto windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [&window](const QWidget* other) {
        return other != &window && other->isVisible() && other->isModal() && HangsOn(other, window);
    });
}

void Show(WindowRecord& record, int command)
{
    QWidget& widget = record.Peer()->Widget();
    switch (command)
    {
    case SW_HIDE:
        record.Hide();
        break;
    case SW_MINIMIZE:
        widget.showMinimized();
        break;
    case SW_RESTORE:
        widget.setWindowState(widget.windowState() & ~Qt::WindowMinimized);
        widget.show();
        break;
    default:
        widget.show();
    }
}

// The window that a widget, or the nearest one above it, belongs to.
HWND WindowOf(const QWidget* widget)
{
    const auto all = WindowTable::Get().All();
    for (; widget; widget = widget->parentWidget())
    {
        for (const auto& record : all)
        {
            if (record->Peer() && &record->Peer()->Widget() == widget)
                return record->Handle();
        }
    }
    return {};
}

bool IsTabStop(const QWidget& control, const QWidget& dialog)
{
    return dialog.isAncestorOf(&control) && (control.focusPolicy() & Qt::TabFocus) == Qt::TabFocus &&
           control.isEnabled() && control.isVisible();
}

bool IsChild(HWND window)
{
    return WithWidget(window, [](QWidget& widget) { return !widget.isWindow(); });
}

} // namespace

bool IsWindow(HWND window)
{
    return WindowTable::Get().Contains(window);
}

bool IsWindowVisible(HWND window)
{
    return WithWidget(window, [](QWidget& widget) { return widget.isVisible(); });
}

LONG GetWindowLongA(HWND window, int index)
{
    return WithWidget(window, [index](QWidget& widget) {
        return index == GWL_STYLE && !widget.isHidden() ? static_cast<LONG>(WS_VISIBLE) : 0;
    });
}

bool IsWindowEnabled(HWND window)
{
    return WithWidget(window,
                      [](QWidget& widget) { return IsEnabled(widget) && !(widget.isWindow() && IsBlocked(widget)); });
}

bool IsIconic(HWND window)
{
    return WithWidget(window, [](QWidget& widget) { return widget.isMinimized(); });
}

HWND GetParent(HWND window)
{
    const auto record = Find(window);
    return record ? record->Parent() : HWND();
}

HWND GetDlgItem(HWND dialog, int id)
{
    const auto record = Find(dialog);
    return record ? record->Child(id) : HWND();
}

int GetDlgCtrlID(HWND control)
{
    const auto record = Find(control);
    return record ? record->Id() : 0;
}

HWND GetWindow(HWND window, UINT command)
{
    const auto above = Find(command == GW_CHILD ? window : GetParent(window));
    if (!above)
        return {};
    auto children = above->Children();
    std::erase_if(children, [](HWND child) { return !IsChild(child); });
    auto place = children.begin();
    if (command == GW_HWNDNEXT)
        place = std::find(place, children.end(), window);
    if (command == GW_HWNDNEXT && place != children.end())
        ++place;
    return place != children.end() ? *place : HWND();
}

BOOL GetWindowRect(HWND window, RECT* area)
{
    *area = {};
    return WithWidget(window, [area](QWidget& widget) {
        const QPoint corner = widget.mapToGlobal(QPoint());
        *area = {corner.x(), corner.y(), corner.x() + widget.width(), corner.y() + widget.height()};
        return true;
    });
}

BOOL MoveWindow(HWND window, const RECT& area)
{
    return With(window, [&area](WindowRecord& record) {
        QWidget& widget = record.Peer()->Widget();
        if (widget.minimumSize() == widget.maximumSize())
            widget.setFixedSize(ToolkitRect(area).size());
        widget.setGeometry(ToolkitRect(area));
        record.Peer()->TellSize();
        return true;
    });
}

BOOL ScreenToClient(HWND window, POINT* point)
{
    return WithWidget(window, [point](QWidget& widget) {
        const QPoint place = widget.mapFromGlobal(QPoint(point->x, point->y));
        *point = {place.x(), place.y()};
        return true;
    });
}

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto record = Find(window);
    if (record && record->IsProgress() && ProgressWords::Understands(message) && !IsDesktopThread())
        return record->AnswerProgress(message, wParam, lParam);
    return With(window, [&](WindowRecord& r) { return r.Send(message, wParam, lParam); });
}

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto deliver = [=] {
        if (const auto record = Find(window))
            record->SendFromToolkit(message, wParam, lParam);
    };
    return IsWindow(window) && PostToDesktop(deliver);
}

BOOL ShowWindow(HWND window, int command)
{
    return With(window, [command](WindowRecord& record) {
        const bool wasVisible = record.Peer()->Widget().isVisible();
        Show(record, command);
        return wasVisible;
    });
}

BOOL EnableWindow(HWND window, BOOL enable)
{
    return WithWidget(window, [enable](QWidget& widget) {
        const bool wasDisabled = !IsEnabled(widget);
        widget.setEnabled(enable);
        return wasDisabled;
    });
}

BOOL SetForegroundWindow(HWND window)
{
    return WithWidget(window, [](QWidget& widget) {
        QWidget* top = widget.window();
        top->raise();
        top->activateWindow();
        return top->isVisible();
    });
}

BOOL SetWindowTextA(HWND window, const std::string& text)
{
    const auto record = Find(window);
    if (!record)
        return FALSE;
    record->SetText(text);
    return TRUE;
}

std::string GetWindowTextA(HWND window)
{
    const auto record = Find(window);
    return record ? record->Text() : std::string();
}

BOOL DestroyWindow(HWND window)
{
    return With(window, [](WindowRecord& record) {
        record.Destroy();
        return true;
    });
}

HWND SetFocus(HWND window)
{
    const HWND before = GetFocus();
    WithWidget(window, [](QWidget& widget) {
        widget.setFocus();
        return true;
    });
    return before;
}

HWND GetFocus()
{
    HWND window;
    RunOnDesktop([&window] { window = WindowOf(QApplication::focusWidget()); });
    return window;
}

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous)
{
    return WithWidget(control, [&](QWidget& from) {
        const auto surface = Find(dialog);
        QWidget* next = &from;
        do
            next = previous ? next->previousInFocusChain() : next->nextInFocusChain();
        while (next != &from && !(surface && IsTabStop(*next, surface->Peer()->Widget())));
        return next == &from ? HWND() : WindowOf(next);
    });
}

HWND GetActiveWindow()
{
    HWND window;
    RunOnDesktop([&window] { window = WindowOf(QApplication::activeWindow()); });
    return window;
}

HWND WindowFromPoint(POINT point)
{
    HWND window;
    RunOnDesktop([&] { window = WindowOf(QApplication::widgetAt(point.x, point.y)); });
    return window;
}

short GetKeyState(int key)
{
    const bool held = KeyFilter::Modifiers() & (key == VK_CONTROL ? Qt::ControlModifier : Qt::ShiftModifier);
    return held && (key == VK_CONTROL || key == VK_SHIFT) ? std::numeric_limits<short>::min() : short(0);
}

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds)
{
    // 0 says that there is no timer.
    const UINT_PTR number = id ? id : 1;
    return With(window, [=](WindowRecord& record) {
        record.SetTimer(number, milliseconds);
        return number;
    });
}

BOOL KillTimer(HWND window, UINT_PTR id)
{
    return With(window, [id](WindowRecord& record) { return record.KillTimer(id); });
}

#include "platform/window/Wnd.h"

#include "platform/window/Creation_p.h"
#include "platform/window/DataExchange.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/MessageBox_p.h"
#include "platform/window/TopLevelPeer_p.h"
#include "platform/window/WinApp.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/widgets/DrawnWidget_p.h"

#include <QWidget>

namespace
{

constexpr UINT LowWord(WPARAM value)
{
    return static_cast<UINT>(value & 0xFFFF);
}

constexpr UINT HighWord(WPARAM value)
{
    return static_cast<UINT>(value >> 16 & 0xFFFF);
}

const MessageEntry* FindEntry(const MessageMap& map, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND)
        return map.Find(message, HighWord(wParam), LowWord(wParam));
    if (message != WM_NOTIFY)
        return map.Find(message, 0, 0);
    const NMHDR& head = *reinterpret_cast<const NMHDR*>(lParam);
    return map.Find(message, head.code, static_cast<UINT>(head.idFrom));
}

// Runs with the window's record and widget on the user-interface thread, if it stands.
template <class Action>
void WithWidget(HWND window, Action action)
{
    RunOnDesktop([&] {
        if (const auto record = WindowTable::Get().Find(window))
            action(*record, record->Peer()->Widget());
    });
}

} // namespace

CWnd::~CWnd()
{
    if (!m_hWnd)
        return;
    RunOnDesktop([this] {
        const auto record = m_record.lock();
        if (!record)
            return;
        const bool made = record->MadeByWindow();
        record->Detach();
        if (made)
            record->Destroy();
    });
}

CWnd* CWnd::FromHandle(HWND window)
{
    const auto record = WindowTable::Get().Find(window);
    return record ? record->Window() : nullptr;
}

BOOL CWnd::Create(const std::string& name, const RECT& area, CWnd* parent, UINT id)
{
    BOOL made = FALSE;
    RunOnDesktop([&] {
        auto* drawn = MakeChild<DrawnWidget>(*this, parent, id, area);
        if (!drawn)
            return;
        made = TRUE;
        drawn->lower();
        SetWindowText(name);
    });
    return made;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent)
{
    bool attached = false;
    WithWidget(parent ? parent->GetDlgItem(static_cast<int>(id)) : HWND(), [&](WindowRecord& record, QWidget&) {
        if (record.Window() || m_hWnd)
            return;
        record.Attach(*this, false);
        attached = true;
        PreSubclassWindow();
    });
    return attached;
}

HWND CWnd::Detach()
{
    const HWND window = m_hWnd;
    RunOnDesktop([this] {
        if (const auto record = m_record.lock())
            record->Detach();
    });
    m_hWnd = {};
    return window;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return SendMessageA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return PostMessageA(m_hWnd, message, wParam, lParam);
}

void CWnd::SetWindowText(const std::string& text) const
{
    SetWindowTextA(m_hWnd, text);
}

std::string CWnd::GetWindowText() const
{
    return GetWindowTextA(m_hWnd);
}

BOOL CWnd::ShowWindow(int command) const
{
    return ::ShowWindow(m_hWnd, command);
}

BOOL CWnd::EnableWindow(BOOL enable) const
{
    return ::EnableWindow(m_hWnd, enable);
}

bool CWnd::IsWindowVisible() const
{
    return ::IsWindowVisible(m_hWnd);
}

bool CWnd::IsWindowEnabled() const
{
    return ::IsWindowEnabled(m_hWnd);
}

bool CWnd::IsIconic() const
{
    return ::IsIconic(m_hWnd);
}

BOOL CWnd::SetForegroundWindow() const
{
    return ::SetForegroundWindow(m_hWnd);
}

HWND CWnd::GetDlgItem(int id) const
{
    return ::GetDlgItem(m_hWnd, id);
}

BOOL CWnd::DestroyWindow()
{
    return ::DestroyWindow(m_hWnd);
}

HWND CWnd::SetFocus() const
{
    return ::SetFocus(m_hWnd);
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds) const
{
    return ::SetTimer(m_hWnd, id, milliseconds);
}

BOOL CWnd::KillTimer(UINT_PTR id) const
{
    return ::KillTimer(m_hWnd, id);
}

void CWnd::GetClientRect(RECT* area) const
{
    *area = {};
    WithWidget(m_hWnd, [area](WindowRecord&, QWidget& widget) { *area = {0, 0, widget.width(), widget.height()}; });
}

void CWnd::GetWindowRect(RECT* area) const
{
    ::GetWindowRect(m_hWnd, area);
}

void CWnd::ScreenToClient(RECT* area) const
{
    POINT corner{area->left, area->top};
    if (::ScreenToClient(m_hWnd, &corner))
        *area = {corner.x, corner.y, corner.x + area->right - area->left, corner.y + area->bottom - area->top};
}

void CWnd::MoveWindow(const RECT& area) const
{
    ::MoveWindow(m_hWnd, area);
}

void CWnd::Invalidate() const
{
    WithWidget(m_hWnd, [](WindowRecord&, QWidget& widget) { widget.update(); });
}

void CWnd::InvalidateRect(const RECT& area) const
{
    WithWidget(m_hWnd, [&area](WindowRecord&, QWidget& widget) { widget.update(ToolkitRect(area)); });
}

void CWnd::CenterWindow(CWnd* other)
{
    const HWND otherWindow = other ? other->m_hWnd : HWND();
    WithWidget(m_hWnd, [otherWindow](WindowRecord& record, QWidget& widget) {
        const auto over = otherWindow ? WindowTable::Get().Find(otherWindow) : record.Owner();
        auto* top = dynamic_cast<TopLevelPeer*>(record.Peer());
        if (top)
            top->CenterOver(over && !over->IsGone() ? &over->Peer()->Widget() : widget.parentWidget());
    });
}

HICON CWnd::SetIcon(HICON icon, BOOL big)
{
    const LRESULT before = SendMessage(WM_SETICON, big ? ICON_BIG : ICON_SMALL, static_cast<LPARAM>(icon.resource));
    return {static_cast<std::uint32_t>(before)};
}

CMenu* CWnd::GetSystemMenu(BOOL revert)
{
    CMenu* menu = nullptr;
    WithWidget(m_hWnd, [&](WindowRecord& record, QWidget&) { menu = record.Peer()->SystemMenu(revert); });
    return menu;
}

BOOL CWnd::UpdateData(BOOL saveAndValidate)
{
    bool done = false;
    RunOnDesktop([&] {
        CDataExchange exchange(this, saveAndValidate);
        try
        {
            DoDataExchange(&exchange);
            done = true;
        }
        catch (const CDataExchange::Failure&)
        {
            // The user has been told.
        }
    });
    return done;
}

int CWnd::MessageBox(const std::string& text, const std::string& caption, UINT type) const
{
    return ShowMessageBox(m_hWnd, text, caption.empty() ? ApplicationName() : caption, type);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    // The entry outlives this object, which its handler may delete.
    if (const MessageEntry* entry = FindEntry(GetMessageMap(), message, wParam, lParam))
        return entry->handler(*this, wParam, lParam);
    return DefWindowProc(message, wParam, lParam);
}

void CWnd::PreSubclassWindow()
{}

const MessageMap& CWnd::GetMessageMap() const
{
    return StaticMessageMap();
}

const MessageMap& CWnd::StaticMessageMap()
{
    static const MessageMap map;
    return map;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT answer = 0;
    WithWidget(m_hWnd,
               [&](WindowRecord& record, QWidget&) { answer = record.Peer()->Default(message, wParam, lParam); });
    return answer;
}

LRESULT CWnd::Default()
{
    const auto record = WindowTable::Get().Find(m_hWnd);
    return record ? record->DefaultOfCurrent() : 0;
}

void CWnd::DoDataExchange(CDataExchange*)
{}

void CWnd::PostNcDestroy()
{}

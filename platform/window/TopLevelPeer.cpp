#include "platform/window/TopLevelPeer_p.h"

#include "platform/window/Calls.h"
#include "platform/window/MenuPopup_p.h"
#include "platform/window/Picture_p.h"
#include "platform/window/WindowRecord_p.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace
{

void MakeSystemMenu(CMenu& menu, bool minimizeBox)
{
    menu.DestroyMenu();
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, SC_RESTORE, "&Restore");
    if (minimizeBox)
        menu.AppendMenu(MF_STRING, SC_MINIMIZE, "Mi&nimize");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, SC_CLOSE, "&Close\tAlt+F4");
}

// Moves the area into the screen's, its top and left before all.
QPoint OnScreen(QRect area, const QRect& screen)
{
    area.moveRight(qMin(area.right(), screen.right()));
    area.moveBottom(qMin(area.bottom(), screen.bottom()));
    area.moveLeft(qMax(area.left(), screen.left()));
    area.moveTop(qMax(area.top(), screen.top()));
    return area.topLeft();
}

QScreen* ScreenInUse()
{
    QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    return screen ? screen : QGuiApplication::primaryScreen();
}

// The last made of the windows on show that hang on `window`. Boxes go before what they stand over, so none counts.
QWidget* WindowBefore(const QWidget& window, const QWidget& besides)
{
    QWidget* last = nullptr;
    for (QWidget* child : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
    {
        const bool stands = child->isVisible() && child->windowHandle() && child != &besides;
        if (stands && dynamic_cast<TopLevelPeer*>(child))
            last = child;
    }
    return last;
}

} // namespace

void HangOnFrontWindow(QWidget& modal)
{
    QWidget* front = nullptr;
    const QWidget* above = modal.parentWidget();
    while (QWidget* next = above ? WindowBefore(*above, modal) : nullptr)
        above = front = next;
    if (!front)
        return;
    modal.winId(); // from now on it has a window
    modal.windowHandle()->setTransientParent(front->windowHandle());
}

void TopLevelPeer::ShowText(const QString& text)
{
    Widget().setWindowTitle(text);
    // The name that assistive technology reads while the window is minimised.
    Widget().setWindowIconText(text);
}

LRESULT TopLevelPeer::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_CLOSE:
        m_record->Destroy();
        return 0;
    case WM_SYSCOMMAND:
        // The low four bits are the system's own.
        SystemCommand(static_cast<UINT>(wParam) & 0xFFF0);
        return 0;
    case WM_SETICON:
        return SetIcon(wParam == ICON_BIG, {static_cast<std::uint32_t>(lParam)});
    case WM_QUERYDRAGICON:
        return m_bigIcon.resource;
    default:
        return 0;
    }
}

CMenu* TopLevelPeer::SystemMenu(bool revert)
{
    if (m_systemMenu && revert)
        MakeSystemMenu(*m_systemMenu, m_minimizeBox);
    return m_systemMenu.get();
}

void TopLevelPeer::EnableSystemMenu(bool minimizeBox)
{
    m_minimizeBox = minimizeBox;
    m_systemMenu = std::make_unique<CMenu>();
    MakeSystemMenu(*m_systemMenu, minimizeBox);
}

void TopLevelPeer::PopUpSystemMenu(const QPoint& globalPosition)
{
    const auto record = m_record;
    const bool iconic = Widget().isMinimized();
    m_systemMenu->EnableMenuItem(SC_RESTORE, iconic ? MF_ENABLED : MF_GRAYED);
    m_systemMenu->EnableMenuItem(SC_MINIMIZE, iconic ? MF_GRAYED : MF_ENABLED);
    if (const UINT chosen = RunPopupMenu(m_systemMenu->m_hMenu, globalPosition, *record))
        record->SendFromToolkit(WM_SYSCOMMAND, chosen, 0);
}

void TopLevelPeer::CenterOver(QWidget* reference)
{
    m_centerOver = reference && !reference->isVisible() ? reference : nullptr;
    QWidget& widget = Widget();
    const bool usable = reference && reference->isVisible() && !reference->isMinimized();
    const QRect screen = (usable ? reference->screen() : ScreenInUse())->availableGeometry();
    QRect area(QPoint(), widget.size());
    area.moveCenter(usable ? QRect(reference->mapToGlobal(QPoint()), reference->size()).center() : screen.center());
    widget.move(OnScreen(area, screen));
}

void TopLevelPeer::PlaceFirstTime()
{
    // Where it has no place, the toolkit would guess one that may leave the title bar off a small screen.
    const QWidget& widget = Widget();
    if (m_centerOver)
        CenterOver(m_centerOver);
    else if (!widget.testAttribute(Qt::WA_Moved))
        CenterOver(widget.parentWidget());
}

LRESULT TopLevelPeer::SetIcon(bool big, HICON icon)
{
    const HICON before = std::exchange(big ? m_bigIcon : m_smallIcon, icon);
    // The toolkit knows one icon, which has all sizes.
    Widget().setWindowIcon(PictureIcon(static_cast<int>((m_bigIcon ? m_bigIcon : m_smallIcon).resource)));
    return before.resource;
}

void TopLevelPeer::SystemCommand(UINT command)
{
    const HWND window = m_record->Handle();
    if (command == SC_CLOSE)
        SendMessageA(window, WM_CLOSE, 0, 0);
    else if (command == SC_MINIMIZE)
        ShowWindow(window, SW_MINIMIZE);
    else if (command == SC_RESTORE)
        ShowWindow(window, SW_RESTORE);
}

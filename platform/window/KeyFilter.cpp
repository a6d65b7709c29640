#include "platform/window/KeyFilter_p.h"

#include "platform/window/Calls.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <optional>

namespace
{

std::optional<Qt::KeyboardModifiers> g_modifiers; // of the key in hand

// 0 for a key that has no number here.
int VirtualKey(int key)
{
    switch (key)
    {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return VK_TAB;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return VK_RETURN;
    case Qt::Key_Escape:
        return VK_ESCAPE;
    default:
        // The toolkit's numbers are the characters, too.
        return (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z') ? key : 0;
    }
}

} // namespace

KeyFilter::KeyFilter(QWidget& window, Take take) : QObject(&window), m_window(window), m_take(std::move(take))
{
    qApp->installEventFilter(this);
}

Qt::KeyboardModifiers KeyFilter::Modifiers()
{
    return g_modifiers.value_or(QApplication::keyboardModifiers());
}

bool KeyFilter::eventFilter(QObject* receiver, QEvent* event)
{
    // What the control leaves alone comes again, for each window above it.
    const QObject* first = m_window.focusWidget() ? m_window.focusWidget() : &m_window;
    if (event->type() != QEvent::KeyPress || receiver != first)
        return false;
    const auto& press = static_cast<const QKeyEvent&>(*event);
    const int key = VirtualKey(press.key());
    if (key == 0)
        return false;
    MSG message{GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 0};
    const auto before = std::exchange(g_modifiers, press.modifiers());
    const bool used = m_take(message);
    g_modifiers = before;
    return used;
}

#include "platform/window/widgets/DialogWidget_p.h"

#include "platform/window/Calls.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/widgets/PushButtonWidget_p.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QShortcut>

namespace
{

Qt::WindowFlags FlagsOf(DWORD style, const QWidget* parent)
{
    Qt::WindowFlags flags = parent ? Qt::Dialog : Qt::Window;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    if (style & DS_SYSMENU)
        flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (style & DS_MINIMIZEBOX)
        flags |= Qt::WindowMinimizeButtonHint;
    return flags;
}

// Whether a control leaves a right click to the dialog it stands on.
bool IsBackground(const QWidget* control)
{
    return !control || !control->isEnabled() || qobject_cast<const QLabel*>(control) ||
           qobject_cast<const QGroupBox*>(control) || qobject_cast<const QProgressBar*>(control) ||
           control->focusPolicy() == Qt::NoFocus;
}

bool CanTakeFocus(const QWidget& control)
{
    return (control.focusPolicy() & Qt::TabFocus) && control.isEnabled() && !control.isHidden();
}

} // namespace

DialogWidget::DialogWidget(const DialogTemplate& dialog, QWidget* parent)
    : QDialog(parent, FlagsOf(dialog.style, parent))
{
    setObjectName(QString::number(dialog.id));
    if (!(dialog.style & DS_SYSMENU))
        return;
    EnableSystemMenu(dialog.style & DS_MINIMIZEBOX);
    auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Space), this);
    connect(shortcut, &QShortcut::activated, this, [this] { PopUpSystemMenu(mapToGlobal(QPoint())); });
}

void FocusFirstControl(const QWidget& surface)
{
    for (QObject* child : surface.children())
    {
        auto* control = qobject_cast<QWidget*>(child);
        if (control && CanTakeFocus(*control))
        {
            control->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

void DialogWidget::closeEvent(QCloseEvent* event)
{
    event->ignore();
    m_record->SendFromToolkit(WM_CLOSE, 0, 0);
}

void DialogWidget::contextMenuEvent(QContextMenuEvent* event)
{
    if (HasSystemMenu() && event->reason() == QContextMenuEvent::Mouse && IsBackground(childAt(event->pos())))
        PopUpSystemMenu(event->globalPos());
}

void DialogWidget::keyPressEvent(QKeyEvent* event)
{
    switch (event->key())
    {
    case Qt::Key_Escape:
        PressCancel();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        PressDefaultButton();
        break;
    default:
        event->ignore();
    }
}

void DialogWidget::paintEvent(QPaintEvent*)
{
    m_record->SendFromToolkit(WM_PAINT, 0, 0);
}

void DialogWidget::showEvent(QShowEvent* event)
{
    PlaceFirstTime();
    QDialog::showEvent(event);
}

void DialogWidget::PressCancel()
{
    const HWND button = m_record->Child(IDCANCEL);
    if (!button || IsWindowEnabled(button))
        m_record->SendFromToolkit(WM_COMMAND, IDCANCEL, ToLParam(button));
}

void DialogWidget::PressDefaultButton()
{
    for (QPushButton* child : findChildren<QPushButton*>())
    {
        auto* const button = dynamic_cast<PushButtonWidget*>(child);
        if (button && button->isVisible() && button->ActsAsDefault())
        {
            button->click();
            return;
        }
    }
    SendMessageA(m_record->Child(IDOK), BM_CLICK, 0, 0);
}

PageWidget::PageWidget(const DialogTemplate& dialog, QWidget* parent) : QWidget(parent)
{
    setObjectName(QString::number(dialog.id));
    setAutoFillBackground(true);
}

void PageWidget::ShowText(const QString& text)
{
    setAccessibleName(text);
}

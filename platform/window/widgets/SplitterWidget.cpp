#include "platform/window/widgets/SplitterWidget_p.h"

#include <QEvent>
#include <QShortcut>

namespace
{

// Where the focus was last, or the first control that takes it. Null if the pane has none.
QWidget* FocusTarget(const QWidget& pane)
{
    if (QWidget* last = pane.focusWidget())
        return last;
    for (QWidget* control : pane.findChildren<QWidget*>())
    {
        if (control->focusPolicy() & Qt::TabFocus && control->isVisible() && control->isEnabled())
            return control;
    }
    return nullptr;
}

} // namespace

SplitterWidget::SplitterWidget(QWidget* parent) : DrawnWidget(parent)
{
    setObjectName(QLatin1String(kSplitterName));
    setMouseTracking(true);
    parent->installEventFilter(this);
    for (const auto& [key, step] : {std::pair(QKeySequence(Qt::Key_F6), 1), {QKeySequence(Qt::SHIFT | Qt::Key_F6), -1}})
    {
        auto* shortcut = new QShortcut(key, this);
        connect(shortcut, &QShortcut::activated, this, [this, move = step] { FocusPane(move); });
    }
}

void SplitterWidget::ShowBarCursor(bool sideways, bool upAndDown)
{
    if (sideways)
        setCursor(upAndDown ? Qt::SizeAllCursor : Qt::SplitHCursor);
    else
        setCursor(upAndDown ? Qt::SplitVCursor : Qt::ArrowCursor);
}

bool SplitterWidget::eventFilter(QObject* object, QEvent* event)
{
    if (object == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return DrawnWidget::eventFilter(object, event);
}

void SplitterWidget::FocusPane(int step)
{
    std::vector<QWidget*> targets;
    qsizetype current = step > 0 ? -1 : 0;
    for (QObject* child : children())
    {
        const auto* pane = qobject_cast<QWidget*>(child);
        QWidget* target = pane && pane->isVisible() ? FocusTarget(*pane) : nullptr;
        if (!target)
            continue;
        if (target->hasFocus())
            current = std::ssize(targets);
        targets.push_back(target);
    }
    const qsizetype count = std::ssize(targets);
    if (count > 0)
        targets[static_cast<std::size_t>((current + step + count) % count)]->setFocus(Qt::ShortcutFocusReason);
}

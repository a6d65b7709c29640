#include "platform/window/LockKeys_p.h"
#include "platform/window/PeerAccess_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/widgets/ControlBarWidgets_p.h"

#include <QApplication>
#include <QTimer>

namespace
{

constexpr UINT kStatusBar = 0xE801; // the published number of a frame's one
constexpr int kLookMilliseconds = 500;

// 0 for what is no indicator.
unsigned LockOf(UINT id)
{
    switch (id)
    {
    case ID_INDICATOR_CAPS:
        return kCapsLock;
    case ID_INDICATOR_NUM:
        return kNumLock;
    case ID_INDICATOR_SCRL:
        return kScrollLock;
    default:
        return 0;
    }
}

} // namespace

StatusBarWidget::StatusBarWidget(FrameWidget& frame) : m_message(new QLabel(this)), m_timer(new QTimer(this))
{
    m_message->setTextFormat(Qt::PlainText);
    // A long message is no reason for a wide window.
    m_message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    addWidget(m_message, 1);
    m_timer->setInterval(kLookMilliseconds);
    connect(m_timer, &QTimer::timeout, this, [this] { ShowLocks(); });
    frame.setStatusBar(this);
}

void StatusBarWidget::ShowText(const QString& text)
{
    m_message->setText(OneLine(text));
}

void StatusBarWidget::SetPanes(std::span<const UINT> ids)
{
    for (const Indicator& indicator : std::exchange(m_indicators, {}))
        delete indicator.label;
    for (const UINT id : ids)
    {
        if (LockOf(id))
            AddIndicator(id);
    }
    ShowLocks();
}

void StatusBarWidget::AddIndicator(UINT id)
{
    constexpr int kMargin = 8;
    const QString text = ToolkitText(AfxLoadString(id));
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(text) + kMargin);
    addPermanentWidget(label);
    m_indicators.push_back({label, LockOf(id), text});
}

void StatusBarWidget::ShowLocks()
{
    const unsigned on = m_indicators.empty() ? 0 : LocksThatAreOn();
    for (const Indicator& indicator : m_indicators)
        indicator.label->setText(on & indicator.lock ? indicator.text : QString());
}

bool StatusBarWidget::eventFilter(QObject* object, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::WindowActivate)
        ShowLocks();
    return QStatusBar::eventFilter(object, event);
}

void StatusBarWidget::hideEvent(QHideEvent* event)
{
    m_timer->stop();
    QCoreApplication::instance()->removeEventFilter(this);
    QStatusBar::hideEvent(event);
}

void StatusBarWidget::showEvent(QShowEvent* event)
{
    QStatusBar::showEvent(event);
    ShowLocks();
    m_timer->start();
    QCoreApplication::instance()->installEventFilter(this);
}

BOOL CStatusBar::Create(CFrameWnd* frame)
{
    return MakeBar<StatusBarWidget>(*this, frame, kStatusBar);
}

BOOL CStatusBar::SetIndicators(std::span<const UINT> ids)
{
    return WithPeer<StatusBarWidget>(m_hWnd, false, [ids](StatusBarWidget& bar) {
        bar.SetPanes(ids);
        return true;
    });
}

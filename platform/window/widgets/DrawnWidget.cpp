#include "platform/window/widgets/DrawnWidget_p.h"

#include <QMouseEvent>

DrawnWidget::DrawnWidget(QWidget* parent) : QWidget(parent)
{
    // Not that of the splitter's bars around it.
    setCursor(Qt::ArrowCursor);
}

void DrawnWidget::ShowText(const QString& text)
{
    setAccessibleName(text);
}

void DrawnWidget::TellSize()
{
    const auto record = m_record;
    m_size.Tell(*record, size());
}

void DrawnWidget::TellMouse(UINT message, const QMouseEvent& event)
{
    const auto record = m_record;
    const QPoint place = event.position().toPoint();
    const WPARAM held = event.buttons() & Qt::LeftButton ? MK_LBUTTON : 0;
    record->SendFromToolkit(message, held, PairToLParam(place.x(), place.y()));
}

void DrawnWidget::mouseMoveEvent(QMouseEvent* event)
{
    TellMouse(WM_MOUSEMOVE, *event);
}

void DrawnWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        TellMouse(WM_LBUTTONDOWN, *event);
}

void DrawnWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        TellMouse(WM_LBUTTONUP, *event);
}

void DrawnWidget::paintEvent(QPaintEvent*)
{
    m_record->SendFromToolkit(WM_PAINT, 0, 0);
}

void DrawnWidget::resizeEvent(QResizeEvent*)
{
    TellSize();
}

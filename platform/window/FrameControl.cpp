// The parts of controls that a device context draws.
#include "platform/window/Creation_p.h"
#include "platform/window/DeviceContext_p.h"

#include <QPolygonF>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>

namespace
{

// All marks have this size, in device-independent pixels.
constexpr double kMarkSize = 9;

QPolygonF MarkOf(UINT type, UINT state)
{
    if (type == DFC_SCROLL)
        return QPolygonF({{0.1, 0.3}, {0.5, 0.7}, {0.9, 0.3}});
    if (state & DFCS_MENUCHECK)
        return QPolygonF({{0, 0.55}, {0.35, 0.9}, {1, 0.15}});
    return QPolygonF({{0.3, 0.1}, {0.7, 0.5}, {0.3, 0.9}});
}

// A line with a round end at every corner, in the colour of texts.
void DrawMark(QPainter& painter, const QRectF& area, const QPolygonF& mark)
{
    constexpr double kLine = 1.6;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(painter.pen().color(), kLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.translate(area.center() - QPointF(kMarkSize / 2, kMarkSize / 2));
    painter.drawPolyline(QTransform::fromScale(kMarkSize, kMarkSize).map(mark));
    painter.restore();
}

QStyle::State ButtonState(UINT state)
{
    QStyle::State shown = state & DFCS_PUSHED ? QStyle::State_Sunken : QStyle::State_Raised;
    if (!(state & DFCS_INACTIVE))
        shown |= QStyle::State_Enabled;
    if (state & DFCS_HOT)
        shown |= QStyle::State_MouseOver;
    if (!(state & DFCS_BUTTONPUSH))
        shown |= state & DFCS_CHECKED ? QStyle::State_On : QStyle::State_Off;
    return shown;
}

// In the look of the widget, without the state that it is in itself.
QStyleOptionButton ButtonOption(const QWidget& widget, const QRect& area, UINT state, const QColor& background)
{
    QStyleOptionButton option;
    option.initFrom(&widget);
    option.rect = area;
    option.state = ButtonState(state) | (option.state & QStyle::State_Active);
    if (state & DFCS_DEFAULT)
        option.features |= QStyleOptionButton::DefaultButton;
    if (background.isValid())
        option.palette.setColor(QPalette::Button, background);
    return option;
}

QRect InMiddle(const QRect& area, const QSize& size)
{
    QRect box(QPoint(), size);
    box.moveCenter(area.center());
    return box;
}

} // namespace

void CDC::DrawFrameControl(const RECT& rect, UINT type, UINT state)
{
    if (!Draws())
        return;
    const QRect area = ToolkitRect(rect);
    QPainter& painter = *m_surface->painter;
    if (type != DFC_BUTTON)
    {
        DrawMark(painter, area, MarkOf(type, state));
        return;
    }
    QStyle& style = *m_surface->widget.style();
    QStyleOptionButton option = ButtonOption(m_surface->widget, area, state, m_surface->background);
    painter.save();
    if (state & DFCS_BUTTONPUSH)
    {
        style.drawControl(QStyle::CE_PushButtonBevel, &option, &painter, &m_surface->widget);
    }
    else
    {
        option.rect = InMiddle(area, {style.pixelMetric(QStyle::PM_IndicatorWidth, &option, &m_surface->widget),
                                      style.pixelMetric(QStyle::PM_IndicatorHeight, &option, &m_surface->widget)});
        style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, &m_surface->widget);
    }
    painter.restore();
}

void CDC::DrawFocusRect(const RECT& rect)
{
    if (!Draws())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(&m_surface->widget);
    option.rect = ToolkitRect(rect);
    option.state |= QStyle::State_KeyboardFocusChange;
    option.backgroundColor = option.palette.color(QPalette::Button);
    m_surface->painter->save();
    m_surface->widget.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, m_surface->painter,
                                             &m_surface->widget);
    m_surface->painter->restore();
}

COLORREF CDC::SetBkColor(COLORREF color)
{
    if (!Draws())
        return CLR_INVALID;
    const QColor before = std::exchange(m_surface->background, color == CLR_INVALID ? QColor() : ToolkitColor(color));
    return before.isValid() ? DesktopColor(before) : CLR_INVALID;
}

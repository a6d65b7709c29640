// The parts of controls that a device context draws.
#include "platform/window/Creation_p.h"
#include "platform/window/DeviceContext_p.h"

#include <QPolygonF>

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

} // namespace

void CDC::DrawFrameControl(const RECT& rect, UINT type, UINT state)
{
    if (Draws())
        DrawMark(*m_surface->painter, ToolkitRect(rect), MarkOf(type, state));
}

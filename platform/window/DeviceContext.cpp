#include "platform/window/DeviceContext_p.h"

#include "platform/window/Creation_p.h"
#include "platform/window/QtText_p.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

namespace
{

// Dark texts on bright faces or the other way round: the palette's roles go together.
QPalette::ColorRole RoleOf(int index)
{
    switch (index)
    {
    case COLOR_WINDOW:
        return QPalette::Base;
    case COLOR_3DSHADOW:
        return QPalette::Dark;
    case COLOR_3DHIGHLIGHT:
        return QPalette::Light;
    default:
        return QPalette::Window;
    }
}

QColor ToolkitColor(COLORREF color)
{
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                  static_cast<int>(color >> 16 & 0xFF));
}

int AlignmentOf(UINT format)
{
    return (format & DT_CENTER ? Qt::AlignHCenter : Qt::AlignLeft) |
           (format & DT_VCENTER ? Qt::AlignVCenter : Qt::AlignTop);
}

} // namespace

COLORREF GetSysColor(int index)
{
    const QColor color = QApplication::palette().color(RoleOf(index));
    return static_cast<COLORREF>(color.red() | color.green() << 8 | color.blue() << 16);
}

WidgetDC::WidgetDC(QWidget& widget) : m_painter(&widget)
{
    m_painter.setPen(widget.palette().color(QPalette::WindowText));
}

void WidgetDC::FillSolidRect(const RECT& rect, COLORREF color)
{
    m_painter.fillRect(ToolkitRect(rect), ToolkitColor(color));
}

void WidgetDC::Draw3dRect(const RECT& rect, COLORREF topLeft, COLORREF bottomRight)
{
    const LONG right = rect.right - 1;
    const LONG bottom = rect.bottom - 1;
    FillSolidRect({rect.left, rect.top, right, rect.top + 1}, topLeft);
    FillSolidRect({rect.left, rect.top, rect.left + 1, bottom}, topLeft);
    FillSolidRect({right, rect.top, rect.right, rect.bottom}, bottomRight);
    FillSolidRect({rect.left, bottom, rect.right, rect.bottom}, bottomRight);
}

void WidgetDC::DrawText(const std::string& text, const RECT& rect, UINT format)
{
    const QRect area = ToolkitRect(rect);
    const QString line = m_painter.fontMetrics().elidedText(OneLine(ToolkitText(text)), Qt::ElideRight, area.width());
    m_painter.drawText(area, AlignmentOf(format) | Qt::TextSingleLine, line);
}

std::unique_ptr<CDC> PaintingDC(const CWnd& window)
{
    const auto record = RecordOf(&window);
    if (!record || !record->Peer()->Widget().testAttribute(Qt::WA_WState_InPaintEvent))
        return nullptr;
    return std::make_unique<WidgetDC>(record->Peer()->Widget());
}

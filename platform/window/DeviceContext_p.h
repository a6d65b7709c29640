// Drawing on a widget that is being painted.
#pragma once

#include "platform/window/DeviceContext.h"

#include <QPainter>
#include <QWidget>

#include <optional>

QColor ToolkitColor(COLORREF color);
COLORREF DesktopColor(const QColor& color);

struct CDC::Surface
{
private:
    std::optional<QPainter> m_own; // before what points to it

public:
    const QWidget& widget;       // whose style and font it is
    QPainter* painter = nullptr; // null to measure alone
    QColor background = {};      // of faces; none: the style's

    // To measure.
    explicit Surface(const QWidget& look) : widget(look)
    {}
    // To draw within somebody else's painting, which finds the painter again as it was.
    Surface(const QWidget& look, QPainter& others) : widget(look), painter(&others), m_borrowed(true)
    {
        painter->save();
        painter->setPen(widget.palette().color(QPalette::WindowText));
    }
    explicit Surface(QWidget& painted) : widget(painted), painter(&m_own.emplace(&painted))
    {
        painter->setPen(widget.palette().color(QPalette::WindowText));
    }
    ~Surface()
    {
        if (m_borrowed)
            painter->restore();
    }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    QFontMetrics Metrics() const
    {
        return painter ? painter->fontMetrics() : widget.fontMetrics();
    }

private:
    bool m_borrowed = false;
};

// For one item of a widget that the toolkit paints.
class ItemDC : public CDC
{
public:
    // To measure.
    explicit ItemDC(const QWidget& widget) : CDC(std::make_unique<Surface>(widget))
    {}
    // Nothing is drawn outside of `area`.
    ItemDC(const QWidget& widget, QPainter& painter, const QRect& area)
        : CDC(std::make_unique<Surface>(widget, painter))
    {
        painter.setClipRect(area, Qt::IntersectClip);
    }
};

// Drawing on a widget that is being painted.
#pragma once

#include "platform/window/DeviceContext.h"

#include <QPainter>
#include <QWidget>

struct CDC::Surface
{
    QPainter painter;

    explicit Surface(QWidget& widget) : painter(&widget)
    {
        painter.setPen(widget.palette().color(QPalette::WindowText));
    }
};

#include "platform/window/CursorPosition_p.h"

#include "platform/window/Calls.h"
#include "platform/window/Desktop_p.h"

#include <QCursor>

#include <optional>

namespace
{
std::optional<QPoint> g_pointedAt;
}

PointedAt::PointedAt(const QPoint& place)
{
    g_pointedAt = place;
}

PointedAt::~PointedAt()
{
    g_pointedAt.reset();
}

BOOL GetCursorPos(POINT* position)
{
    *position = {};
    return RunOnDesktop([position] {
        const QPoint place = g_pointedAt.value_or(QCursor::pos());
        *position = {place.x(), place.y()};
    });
}

// Where GetCursorPos says the pointer is.
#pragma once

#include <QPoint>

// While one lives, GetCursorPos gives its place: a menu that is asked for with the keyboard then opens at what it is
// for and not wherever the mouse was left. User-interface thread only.
class PointedAt
{
public:
    explicit PointedAt(const QPoint& place);
    ~PointedAt();
    PointedAt(const PointedAt&) = delete;
    PointedAt& operator=(const PointedAt&) = delete;
};

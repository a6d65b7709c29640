// Dialog units in device-independent pixels.
#pragma once

#include <QFontMetrics>
#include <QRect>

class DialogUnits
{
public:
    explicit DialogUnits(const QFontMetrics& font)
        // The desktop's own way to the average width.
        : m_width((font.horizontalAdvance(QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ")) / 26 +
                   1) /
                  2),
          m_height(font.height())
    {}

    QPoint Point(int x, int y) const
    {
        return {(x * m_width + 2) / 4, (y * m_height + 4) / 8};
    }
    // Edges that meet in dialog units meet in pixels.
    QRect Rect(int x, int y, int width, int height) const
    {
        return {Point(x, y), Point(x + width, y + height) - QPoint(1, 1)};
    }

private:
    int m_width;
    int m_height;
};

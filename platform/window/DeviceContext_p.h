// Drawing on a widget that is being painted.
#pragma once

#include "platform/window/DeviceContext.h"

#include <QPainter>

#include <optional>

class CWnd;
class QWidget;

class WidgetDC : public CDC
{
public:
    explicit WidgetDC(QWidget& widget);

    void FillSolidRect(const RECT& rect, COLORREF color) override;
    void Draw3dRect(const RECT& rect, COLORREF topLeft, COLORREF bottomRight) override;
    void DrawText(const std::string& text, const RECT& rect, UINT format) override;

private:
    QPainter m_painter;
};

// What a window draws on in answer to WM_PAINT; nothing if it is not being painted.
std::unique_ptr<CDC> PaintingDC(const CWnd& window);

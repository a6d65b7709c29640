// The widget of a label that notifies (CS_NOTIFY): a link that mouse, keys and assistive technology can press. The
// window's object gives it colours and font.
#pragma once

#include "platform/window/widgets/DrawnWidget_p.h"

class LinkWidget : public DrawnWidget
{
public:
    explicit LinkWidget(QWidget* parent);

    void ShowText(const QString& text) override;
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) override;
    // Tells of it, the window itself first.
    void Click();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Paint();

    bool m_pressed = false;
};

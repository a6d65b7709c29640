// The widget of a window that the program draws and lays out itself: painting, size and mouse become messages.
#pragma once

#include "platform/window/SizeTeller_p.h"
#include "platform/window/WindowPeer_p.h"

#include <QWidget>

class DrawnWidget : public QWidget, public WindowPeer
{
public:
    explicit DrawnWidget(QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    // A name for assistive technology.
    void ShowText(const QString& text) override;
    void TellSize() override;

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void TellMouse(UINT message, const QMouseEvent& event);

    SizeTeller m_size;
};

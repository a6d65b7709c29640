// The widget of push buttons, those that the program draws itself included.
#pragma once

#include "platform/window/widgets/ControlWidgets_p.h"

// Enter on the button that has the focus presses that one, and not the default button.
//
// BM_SETSTYLE with BS_OWNERDRAW makes it one that is asked to draw itself and is told of mouse, focus and colours; with
// BM_SETCHECK such a button becomes a box to tick for assistive technology. Ticking itself is the program's.
class PushButtonWidget : public ButtonWidget<QPushButton>
{
public:
    explicit PushButtonWidget(QWidget* parent);

    // Whether Enter in another control presses it.
    bool ActsAsDefault() const;

    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool TrackLeave() override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void SetStyle(UINT style);
    bool AskToDraw();
    void TellOf(const QEvent& event);

    bool m_ownerDrawn = false;
    bool m_tracking = false; // WM_MOUSELEAVE was asked for
};

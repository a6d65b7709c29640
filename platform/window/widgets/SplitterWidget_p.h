// The widget of a splitter: fills its parent, and F6 leads from pane to pane.
#pragma once

#include "platform/window/widgets/DrawnWidget_p.h"

// How the robot finds it among the toolkit's objects.
inline constexpr char kSplitterName[] = "splitter";

class SplitterWidget : public DrawnWidget
{
public:
    explicit SplitterWidget(QWidget* parent);

    // The shape of the pointer on a bar that moves so.
    void ShowBarCursor(bool sideways, bool upAndDown);

protected:
    // Of the parent.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    // `step` is 1 or -1.
    void FocusPane(int step);
};

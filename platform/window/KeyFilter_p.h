// Key presses of one window before the control that has the focus gets them.
#pragma once

#include "platform/window/Messages.h"

#include <QObject>

#include <functional>

class QKeyEvent;
class QWidget;

// Goes with the window. User-interface thread.
class KeyFilter : public QObject
{
public:
    // Takes a WM_KEYDOWN and answers whether the key is used up.
    using Take = std::function<bool(MSG& message)>;

    KeyFilter(QWidget& window, Take take);

    // Of the key that a filter is handling, else as the toolkit knows them.
    static Qt::KeyboardModifiers Modifiers();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    QWidget& m_window;
    const Take m_take;
};

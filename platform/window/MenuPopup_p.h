// A menu on the screen.
#pragma once

#include "platform/window/Menu.h"

class QPoint;
class QWidget;

// Shows the menu and waits until it closes. Gives the chosen command, 0 if none was. `parent` may go meanwhile.
UINT RunPopupMenu(const CMenu& menu, const QPoint& globalPosition, QWidget* parent);

// A menu on the screen.
#pragma once

#include "platform/window/Menu.h"

class QMenuBar;
class QPoint;
class QWidget;

// Gives the bar the menu's entries; the data of an action is its command.
void FillMenuBar(QMenuBar& bar, const CMenu& menu);

// Shows the menu and waits until it closes. Gives the chosen command, 0 if none was. `parent` may go meanwhile.
UINT RunPopupMenu(const CMenu& menu, const QPoint& globalPosition, QWidget* parent);

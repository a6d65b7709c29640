// A menu on the screen.
#pragma once

#include "platform/window/MenuCalls.h"

class QMenuBar;
class QPoint;
class WindowRecord;

// Gives the bar the menu's entries; the data of an action is its command.
void FillMenuBar(QMenuBar& bar, HMENU menu);

// Shows the menu and waits until it closes. Gives the chosen command, 0 if none was. `owner` measures and draws the
// owner-drawn entries and finds the one that a key means; it may go meanwhile, and so may the menu.
UINT RunPopupMenu(HMENU menu, const QPoint& globalPosition, WindowRecord& owner);

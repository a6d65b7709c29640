#pragma once

class QWidget;
class WindowRecord;

// Sends WM_SETCURSOR to the window, which shows the arrow if nobody handles it.
void AskForCursor(WindowRecord& record, QWidget& widget);

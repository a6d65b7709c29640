// Message boxes, for all operations that show one.
#pragma once

#include "platform/window/Handle.h"

#include "platform/Types.h"

#include <string>

class QWidget;

// See MessageBoxA. Any thread.
int ShowMessageBox(HWND owner, const std::string& text, const std::string& caption, UINT type);
// Answers the boxes on show as Esc does, all or those over one window. User-interface thread.
void DismissMessageBoxes(const QWidget* over = nullptr);

// What the desktop shows for the program, as byte text.
std::string ApplicationName();

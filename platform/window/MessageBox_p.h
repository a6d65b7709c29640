// Message boxes, for all operations that show one.
#pragma once

#include "platform/window/Handle.h"

#include "platform/Types.h"

#include <string>

// See MessageBoxA. Any thread.
int ShowMessageBox(HWND owner, const std::string& text, const std::string& caption, UINT type);
// Answers every box on show as Esc does. User-interface thread.
void DismissMessageBoxes();

// What the desktop shows for the program, as byte text.
std::string ApplicationName();

// Someone who is told what is about to happen to a window. A record is given its watch before anyone knows the window.
#pragma once

#include "platform/window/Messages.h"

#include <string>

class WindowRecord;

class WindowWatch
{
public:
    virtual ~WindowWatch() = default;

    // The text changes to another one. On the thread that changes it, which waits.
    virtual void OnTextChanges(const WindowRecord& window, const std::string& text) = 0;
    // PBM_SETRANGE32 or PBM_SETPOS reaches a progress bar. On the thread that sends it, which waits.
    virtual void OnBarChanges(UINT message, WPARAM wParam) = 0;
    // The window goes; its children still stand. User-interface thread.
    virtual void OnWindowGoes(const WindowRecord& window) = 0;
};

// What stands beside the main dialog: its windows, at most one of each kind, and the manual.
#pragma once

#include "tools/HtmlHelp.h"

class CAdvancedFrame;
class CHistoryFrame;

// User-interface thread.
class CSideWindows
{
public:
    CSideWindows() = default;
    // As CloseAll.
    ~CSideWindows();
    CSideWindows(const CSideWindows&) = delete;
    CSideWindows& operator=(const CSideWindows&) = delete;

    // Opens the history window, or brings the open one to the front. Nothing happens if it cannot be made.
    void ShowHistory();
    // The same for the window of advanced commands.
    void ShowAdvanced();
    // Nothing happens if there is no manual.
    void ShowManual(HWND owner);
    // Closes what is open, without asking it.
    void CloseAll();

private:
    // They delete themselves with their windows, and tell so.
    CHistoryFrame* m_pHistoryFrame = nullptr;
    CAdvancedFrame* m_pAdvancedFrame = nullptr;
    CHtmlHelp m_help;
};

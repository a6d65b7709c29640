// The windows that stand beside the main dialog: at most one of each kind.
#pragma once

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
    // Closes what is open, without asking it.
    void CloseAll();

private:
    CHistoryFrame* m_pHistoryFrame = nullptr; // deletes itself with its window, and tells so
};

// The position and range of a progress bar, as words that a worker stores and the bar picks up when it paints.
#pragma once

#include "platform/window/Messages.h"

#include <atomic>

class ProgressWords
{
public:
    static constexpr int kSteps = 1000;

    static bool Understands(UINT message)
    {
        return message == PBM_SETPOS || message == PBM_SETRANGE32 || message == PBM_GETPOS;
    }
    // Answers one of the messages above: the position before, for PBM_SETPOS; the position, for PBM_GETPOS. Any thread.
    LRESULT Answer(UINT message, WPARAM wParam, LPARAM lParam);
    // The position in the range as 0 .. kSteps, 0 for an empty range.
    int Step() const;

private:
    std::atomic<DWORD> m_position = 0;
    std::atomic<DWORD> m_low = 0;
    std::atomic<DWORD> m_high = 100; // the published range of a new bar
};

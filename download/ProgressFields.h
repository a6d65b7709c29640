// The fields of a window that show the item in hand: four texts, the bar, and the two buttons that stop a run or an
// item. Both progress windows carry them, and a worker fills them from its own thread.
//
// The worker writes a text and then waits in SendMessage while the window's thread moves the texts into the controls,
// so the strings are never touched by both at once. A text that has not changed is not sent again, and the bar's
// position costs no waiting at all: a body comes in blocks of 4 KB, and the window must not be what holds it up.
#pragma once

#include "platform/window/Controls.h"

#include <string>

class CDataExchange;

// Asks a window to move the texts into its controls; wParam and lParam are 0. Sent synchronously.
inline constexpr UINT WM_REFRESH_FIELDS = WM_USER + 0x1000;

class CProgressFields
{
public:
    // Binds texts and controls to the controls of the dialog; for its DoDataExchange.
    void DoDataExchange(CDataExchange* exchange);

    // The operations of the worker.

    void SetTransferText(const std::string& from, const std::string& file);
    void SetSizeText(DWORD size);
    void SetRange(DWORD size);
    // `position` of `total` bytes; a total of 0 counts as complete, whatever the position.
    void SetProgress(DWORD position, DWORD total);
    void SetTitle(UINT textId);
    void SetCancelAllText(UINT textId);
    void ShowCancelCurrent(bool show);

private:
    void SetText(std::string& field, const std::string& text);
    void Refresh();

    HWND m_window; // of the dialog, known once it has exchanged data
    CButton m_cancelCurrent;
    CProgressCtrl m_bar;
    CButton m_cancelAll;
    std::string m_file;
    std::string m_from;
    std::string m_size;
    std::string m_percent;
    DWORD m_nPercent = ~DWORD{0}; // that m_percent tells; none at first
    bool m_bChanged = false;      // a text differs from what the controls show
};

// Whole percents of `position` in `total`, cut; 100 for a total of 0.
DWORD PercentOf(DWORD position, DWORD total);

// The fields of a window that show the item in hand: four texts, the bar, and the two buttons that stop a run or an
// item. Both progress windows carry them, and a worker fills them from its own thread.
//
// What tells of a new item is on the window when the operation returns: the worker waits in SendMessage while the
// window's thread moves the texts into the controls. What follows the bytes of an item, the bar's position and the
// percent, costs no waiting: a body comes in blocks of 4 KB, and the window must not be what holds it up. The bar picks
// its position up when it paints, and the percent is asked for by one posted message at a time. A text that has not
// changed is not sent again.
#pragma once

#include "base/RefreshFields.h"

#include "platform/window/Controls.h"

#include <functional>
#include <mutex>
#include <string>

class CDataExchange;

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
    struct Texts
    {
        std::string file;
        std::string from;
        std::string size;
        std::string percent;

        bool operator==(const Texts&) const = default;
    };

    // Takes the change over; true if the texts are others now.
    bool Change(const std::function<void(Texts&)>& change);

    HWND m_window; // of the dialog, known once it has exchanged data
    CButton m_cancelCurrent;
    CProgressCtrl m_bar;
    CButton m_cancelAll;
    DWORD m_nPercent = ~DWORD{0}; // of the last text; none at first. The worker's own
    std::mutex m_mutex;           // guards the next two; never held while calling out
    Texts m_texts;
    bool m_bRefreshPosted = false;
};

// Whole percents of `position` in `total`, cut; 100 for a total of 0.
DWORD PercentOf(DWORD position, DWORD total);

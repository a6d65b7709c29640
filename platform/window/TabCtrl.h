// A row of tabs above an area for what they stand for.
#pragma once

#include "platform/window/Wnd.h"

class CImageList;

// The user took another tab. To the parent, as NMHDR; the control has changed already.
inline constexpr UINT TCN_SELCHANGE = static_cast<UINT>(-551);

// Tabs count from 0. All members may be called from a worker but those of the image list. The tabs stand in one row,
// which scrolls if they do not fit.
class CTabCtrl : public CWnd
{
public:
    // A child of `parent` with a control number. FALSE if it cannot be made.
    BOOL Create(const RECT& area, CWnd* parent, UINT id);

    int GetItemCount() const;
    // Gives the tab it got: a place beyond the end is the end. `image` is one of the image list. The first tab becomes
    // the current one.
    int InsertItem(int item, const std::string& text, int image = -1);
    BOOL DeleteItem(int item);
    // The bytes as they were inserted; empty for a tab that is not there.
    std::string GetItemText(int item) const;
    // As it was inserted, also where the list has no such image; -1 for none.
    int GetItemImage(int item) const;
    // The current tab; -1 without tabs.
    int GetCurSel() const;
    // Gives the tab that was current. The parent is not told.
    int SetCurSel(int item);

    void SetImageList(const CImageList& images);
    CImageList GetImageList() const;

    // Of one tab, in the control's client area; also while the control is hidden.
    BOOL GetItemRect(int item, RECT* area) const;
    // Larger: from the display area to that of a control around it; else from the control's to the display area in it.
    void AdjustRect(BOOL larger, RECT* area) const;
};

// The controls that dialogs bind to. All members may be called from a worker (see Calls.h).
#pragma once

#include "platform/window/Wnd.h"

#include <vector>

// Extended styles of a list, under their published numbers.
inline constexpr DWORD LVS_EX_GRIDLINES = 0x001;
inline constexpr DWORD LVS_EX_CHECKBOXES = 0x004;
inline constexpr DWORD LVS_EX_FULLROWSELECT = 0x020;
inline constexpr DWORD LVS_EX_FLATSB = 0x100; // today's scroll bars are flat: no effect

class CButton : public CWnd
{
public:
    // BST_CHECKED or BST_UNCHECKED, of a check box or a radio button.
    int GetCheck() const;
    // The parent is not told.
    void SetCheck(int check) const;
};

class CStatic : public CWnd
{
};

class CEdit : public CWnd
{
};

class CProgressCtrl : public CWnd
{
public:
    // A plain word, read from any thread without a round trip. Range 0 .. 2^32 - 1.
    DWORD GetPos() const;
};

inline constexpr int LB_ERR = -1;

// A list of rows without columns, of which any number can be selected. Rows count from 0; LB_ERR, 0 or an empty text
// answers for a row that is not there.
class CListBox : public CWnd
{
public:
    // At the end; gives the row it got.
    int AddString(const std::string& text);
    // Gives how many rows are left.
    int DeleteString(int row);
    int GetCount() const;
    std::string GetText(int row) const;
    // The selected rows, rising.
    std::vector<int> GetSelItems() const;
    int SetSel(int row, BOOL select = TRUE);
    int SetItemData(int row, DWORD_PTR data);
    DWORD_PTR GetItemData(int row) const;
};

class CImageList;

// A list of rows with columns. Rows and columns count from 0. Changes of a row's text, tick or selection are told to
// the parent as LVN_ITEMCHANGED (NMLISTVIEW), a double click on a row, or Enter, as NM_DBLCLK, a right click anywhere
// in the control, or the menu key, as NM_RCLICK.
class CListCtrl : public CWnd
{
public:
    // A child of `parent` with a control number, outside a dialog. FALSE if it cannot be made.
    BOOL Create(const RECT& area, CWnd* parent, UINT id);
    void SetImageList(const CImageList& images);
    // What stands in the list while it has no rows; empty for nothing.
    void SetPlaceholderText(const std::string& text);
    // While off, changes neither show nor are they told to the parent.
    void SetRedraw(BOOL redraw);

    DWORD GetExtendedStyle() const;
    // Gives the old style.
    DWORD SetExtendedStyle(DWORD style);
    // Width in device-independent pixels. The last column also takes what is left of the control's width.
    int InsertColumn(int column, const std::string& caption, int width);
    int GetColumnCount() const;

    BOOL DeleteColumn(int column);

    int GetItemCount() const;
    // Gives the row it got: a place beyond the end is the end. `image` is one of the image list.
    int InsertItem(int row, const std::string& text, int image = -1);
    // The first selected row; -1 if none is.
    int GetFirstSelectedItem() const;
    BOOL SetItemText(int row, int column, const std::string& text);
    std::string GetItemText(int row, int column) const;
    BOOL DeleteAllItems();
    BOOL GetCheck(int row) const;
    BOOL SetCheck(int row, BOOL check = TRUE);
};

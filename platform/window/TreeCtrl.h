// A tree of nodes. User-interface thread only; a node's handle dies with the node.
#pragma once

#include "platform/window/Wnd.h"

class CImageList;

// A node; null is none.
struct HTREEITEM
{
    void* node = nullptr;

    constexpr explicit operator bool() const
    {
        return node != nullptr;
    }
    constexpr bool operator==(const HTREEITEM&) const = default;
};

// To the parent before and after another node is the selected one, by the user or by SelectItem; not while the nodes
// are deleted. An answer other than 0 to the first keeps the selection as it is.
inline constexpr UINT TVN_SELCHANGING = static_cast<UINT>(-401);
inline constexpr UINT TVN_SELCHANGED = static_cast<UINT>(-402);

// LPARAM of both.
struct NMTREEVIEW
{
    NMHDR hdr;
    HTREEITEM hItem;      // the new one
    DWORD_PTR lParam = 0; // its item data
};

inline constexpr UINT TVE_EXPAND = 2;

// With buttons and lines, at the root too; nodes cannot be dragged or renamed. Selects one node. Long texts are cut on
// the screen only and shown as a tool tip; line ends and tabs in them read as blanks.
class CTreeCtrl : public CWnd
{
public:
    // A child of `parent` with a control number. FALSE if it cannot be made.
    BOOL Create(const RECT& area, CWnd* parent, UINT id);
    void SetImageList(const CImageList& images);

    // Behind the other children of `parent`, or as a top node without one. `image` also while selected.
    HTREEITEM InsertItem(const std::string& text, int image, HTREEITEM parent = {});
    void SetItemData(HTREEITEM item, DWORD_PTR data);
    DWORD_PTR GetItemData(HTREEITEM item) const;
    // The bytes as they were inserted.
    std::string GetItemText(HTREEITEM item) const;
    // One image, also while selected, as InsertItem takes it; -1 is none.
    void SetItemImage(HTREEITEM item, int image);
    int GetItemImage(HTREEITEM item) const;

    // The first top node; the other four from a node to its neighbours. Null where there is none.
    HTREEITEM GetRootItem() const;
    HTREEITEM GetParentItem(HTREEITEM item) const;
    HTREEITEM GetChildItem(HTREEITEM item) const; // the first
    HTREEITEM GetNextSiblingItem(HTREEITEM item) const;
    HTREEITEM GetPrevSiblingItem(HTREEITEM item) const;

    BOOL Expand(HTREEITEM item, UINT code);
    HTREEITEM GetSelectedItem() const;
    // FALSE if the parent refused.
    BOOL SelectItem(HTREEITEM item);
    // With all nodes below it. If the selected one is among them, none is selected then.
    BOOL DeleteItem(HTREEITEM item);
    BOOL DeleteAllItems();
};

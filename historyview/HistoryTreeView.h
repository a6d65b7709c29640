// The left pane of the history window: all of the history as it was last read, as a tree of days and pages.
#pragma once

#include "persist/HistoryStore.h"

#include "platform/window/ImageList.h"
#include "platform/window/TreeCtrl.h"
#include "platform/window/View.h"

#include <string>

// Asks the detail view to show a level: wParam is the level, lParam 0. The answer is 0, or -1 if it cannot.
inline constexpr UINT WM_SHOW_LEVEL = WM_USER + 0x1001;

// The levels of the tree; what the detail view lists for a node of the level.
enum HistoryLevel : int
{
    kHistoryLevel = 0, // the root: all days
    kDayLevel = 1,     // a day: its pages
    kPageLevel = 2,    // a page: its files
};

// The pictures of the nodes and rows: one for each level, and one for a file.
inline constexpr int kFileImage = 3;
inline constexpr int kLevelImageSize = 16; // device-independent pixels

// The local day of a record, as the files of the history are named.
std::string DayOf(const CHistoryItem& item);

class CHistoryTreeView : public CView
{
public:
    // Reads the history anew and shows it, with nothing selected.
    void RebuildTree();

    CHistoryStore m_store;
    std::string m_selectedText; // what the detail view lists: a day, or the address of a page

protected:
    const MessageMap& GetMessageMap() const override;
    void OnDraw(CDC& dc) override;

private:
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnSize(WPARAM, LPARAM size);
    LRESULT OnSelectionChanged(NMHDR& head);

    void AddDays(HTREEITEM root);
    RECT TreeArea(LONG width, LONG height) const;

    CTreeCtrl m_tree;
    CImageList m_images;
    std::string m_title;
};

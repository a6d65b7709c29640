// The right pane of the history window: the days, the pages of a day, or the files of a page, read from the store of
// the tree view at each change.
#pragma once

#include "platform/window/Controls.h"
#include "platform/window/ImageList.h"
#include "platform/window/View.h"

class CHistoryTreeView;

class CHistoryDetailView : public CView
{
public:
    // Gives the list the columns of a level and empties it.
    void SetColumns(int level);

protected:
    const MessageMap& GetMessageMap() const override;
    void OnDraw(CDC& dc) override;

private:
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnSize(WPARAM, LPARAM size);
    // See WM_SHOW_LEVEL.
    LRESULT OnShowLevel(WPARAM level, LPARAM);
    // One level down, to what the selected row names; a file leads nowhere.
    LRESULT OnDoubleClick(NMHDR&);

    void ShowDays();
    void ShowPages();
    void ShowFiles();

    CListCtrl m_list;
    CImageList m_images;
    CHistoryTreeView* m_pTree = nullptr; // the pane beside, which goes with the same frame
    int m_level = 0;
};

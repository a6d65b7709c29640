// A property sheet in which a tree takes the place of the tabs. The title of a page may be a path (see PagePath.h), so
// pages stand at any depth; a node that exists only above deeper pages shows a message in place of a page.
//
// The tab control is still there, hidden, and holds the truth about the pages: the tree is made anew from it.
#pragma once

#include "settings/PageFrame.h"

#include "platform/window/ImageList.h"
#include "platform/window/PropertySheet.h"
#include "platform/window/TreeCtrl.h"

#include <memory>
#include <string>

// Threads as of CPropertySheet.
class CTreePropSheet : public CPropertySheet
{
public:
    using CPropertySheet::CPropertySheet;
    ~CTreePropSheet() override;

    // Before the sheet opens.

    // Without tree mode it is a plain sheet. The caption bar and the icons are kept only with it. False, and nothing
    // changes, once the window exists.
    bool SetViewOptions(bool treeMode, bool pageCaption, bool treeIcons);
    // Exactly two: of a node without a page, and of a page without an icon of its own; false for another number.
    bool SetDefaultTreeIcons(const CImageList& images);
    // What MakeEmptyPageText puts the node's text into, in place of "%s".
    void SetEmptyPageFormat(const std::string& format);

    // Gives the page the icon at `index` of the list. False for a number that there is none for.
    static bool AttachPageIcon(CPropertyPage& page, const CImageList& images, int index);
    // Takes it away again, once the sheet has closed.
    static void ReleasePageIcon(CPropertyPage& page);

protected:
    // The message of a node without a page, and the parts. A part that is null raises std::bad_alloc.
    virtual std::string MakeEmptyPageText(const std::string& itemText);
    virtual std::unique_ptr<CTreeCtrl> MakeTreeObject();
    virtual std::unique_ptr<CPageFrame> MakePageFrame();

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* message) override;
    void PostNcDestroy() override;
    const MessageMap& GetMessageMap() const override;

private:
    LONG TreeWidth() const;
    RECT PlacePageFrame();
    void GiveUpCaption(RECT& tree, int height);
    int MeasureTabHeight(const RECT& area);
    void MoveChildren(LONG byX, LONG byY);
    void Resize(LONG widthBy, LONG topBy, LONG bottomBy);
    void PlaceTree(const RECT& area);

    void RebuildTree();
    void CollectIcons();
    void InsertTabs();
    HTREEITEM InsertPagePath(std::string path, HTREEITEM parent);
    HTREEITEM FindChild(HTREEITEM parent, const std::string& text) const;
    HTREEITEM FindPageItem(int page) const;
    int DefaultIcon(int which) const;

    void SyncTreeWithSheet();
    bool LeaveCurrentPage();
    bool IsPageShowing() const;
    void RefreshCaption();
    HICON CaptionIcon(HTREEITEM item);

    LRESULT OnAddPage(WPARAM, LPARAM);
    LRESULT OnRemovePage(WPARAM, LPARAM);
    LRESULT OnSetCurSel(WPARAM, LPARAM);
    LRESULT OnTreeSelChanging(NMHDR& head);
    LRESULT OnTreeSelChanged(NMHDR&);

    bool m_bTreeMode = true;
    std::unique_ptr<CTreeCtrl> m_pPageTree; // both while the sheet is open
    std::unique_ptr<CPageFrame> m_pPageFrame;
    bool m_bSelecting = false; // a change of the tree's selection is being handled
    bool m_bPageCaption = false;
    bool m_bTreeIcons = false;
    CImageList m_treeImages; // those of the tabs, and the two default ones behind them
    CImageList m_defaultImages;
    std::string m_emptyPageFormat;
    // In pixels of a desktop whose dialog unit is one and a half pixels wide; with a wider font it grows as pages do.
    int m_nTreeWidth = 150;
};

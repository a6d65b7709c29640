// The tree and the pages: how one is made from the others, and how a change of either is followed by the other.

#include "settings/PagePath.h"
#include "settings/TreePropSheet.h"
#include "settings/TreeWalk.h"

namespace
{

// Item data of a node without a page.
constexpr auto kNoPage = static_cast<DWORD_PTR>(-1);

// Of the default icons.
constexpr int kNodeIcon = 0;
constexpr int kPageIcon = 1;

} // namespace

void CTreePropSheet::RebuildTree()
{
    m_pPageTree->DeleteAllItems();
    if (m_bTreeIcons)
        CollectIcons();
    CTabCtrl& tabs = *GetTabControl();
    const int tabIcons = tabs.GetImageList().GetImageCount();
    for (int tab = 0; tab < tabs.GetItemCount(); ++tab)
    {
        const HTREEITEM item = InsertPagePath(tabs.GetItemText(tab), {});
        m_pPageTree->SetItemData(item, static_cast<DWORD_PTR>(tab));
        const int image = tabs.GetItemImage(tab);
        if (m_bTreeIcons)
            m_pPageTree->SetItemImage(item, image >= 0 && image < tabIcons ? image : DefaultIcon(kPageIcon));
    }
}

void CTreePropSheet::CollectIcons()
{
    const int width = m_treeImages.GetImageWidth();
    m_treeImages.DeleteImageList();
    m_treeImages.Create(width);
    const CImageList tabImages = GetTabControl()->GetImageList();
    for (const CImageList* images : {&tabImages, static_cast<const CImageList*>(&m_defaultImages)})
    {
        for (int image = 0; image < images->GetImageCount(); ++image)
            m_treeImages.Add(images->ExtractIcon(image));
    }
    m_pPageTree->SetImageList(m_treeImages);
}

// The node at the end of the path, with those above it that are not there yet.
HTREEITEM CTreePropSheet::InsertPagePath(std::string path, HTREEITEM parent)
{
    do
    {
        const std::string name = NextPathComponent(path);
        HTREEITEM item = FindChild(parent, name);
        if (!item)
        {
            const bool above = m_bTreeIcons && !path.empty();
            item = m_pPageTree->InsertItem(name, above ? DefaultIcon(kNodeIcon) : -1, parent);
            m_pPageTree->SetItemData(item, kNoPage);
        }
        parent = item;
    } while (!path.empty());
    return parent;
}

HTREEITEM CTreePropSheet::FindChild(HTREEITEM parent, const std::string& text) const
{
    HTREEITEM item = parent ? m_pPageTree->GetChildItem(parent) : m_pPageTree->GetRootItem();
    while (item && m_pPageTree->GetItemText(item) != text)
        item = m_pPageTree->GetNextSiblingItem(item);
    return item;
}

HTREEITEM CTreePropSheet::FindPageItem(int page) const
{
    const HTREEITEM first = m_pPageTree->GetRootItem();
    HTREEITEM item = first;
    while (item && m_pPageTree->GetItemData(item) != static_cast<DWORD_PTR>(page))
    {
        item = NextTreeItem(*m_pPageTree, item);
        if (item == first)
            return {};
    }
    return item;
}

// They stand behind all others; -1 without any.
int CTreePropSheet::DefaultIcon(int which) const
{
    const int count = m_defaultImages.GetImageCount();
    return count > 0 ? m_treeImages.GetImageCount() - count + which : -1;
}

// While the tree's selection is about to change, the tree knows better.
void CTreePropSheet::SyncTreeWithSheet()
{
    const int page = GetTabControl()->GetCurSel();
    const HTREEITEM item = page >= 0 ? FindPageItem(page) : HTREEITEM();
    if (item && !m_bSelecting)
        m_pPageTree->SelectItem(item);
}

LRESULT CTreePropSheet::OnAddPage(WPARAM, LPARAM)
{
    const LRESULT result = Default();
    if (m_pPageTree)
    {
        RebuildTree();
        SyncTreeWithSheet();
    }
    return result;
}

LRESULT CTreePropSheet::OnRemovePage(WPARAM wParam, LPARAM lParam)
{
    return OnAddPage(wParam, lParam);
}

LRESULT CTreePropSheet::OnSetCurSel(WPARAM, LPARAM)
{
    const LRESULT result = Default();
    if (m_pPageTree && result)
    {
        SyncTreeWithSheet();
        RefreshCaption();
    }
    return result;
}

// An answer other than 0 refuses the change.
LRESULT CTreePropSheet::OnTreeSelChanging(NMHDR& head)
{
    if (m_bSelecting)
        return 0;
    m_bSelecting = true;
    const DWORD_PTR page = m_pPageTree->GetItemData(reinterpret_cast<NMTREEVIEW&>(head).hItem);
    const bool changes = page == kNoPage ? LeaveCurrentPage() : SetActivePage(static_cast<int>(page)) != FALSE;
    m_bSelecting = false;
    if (m_pPageTree)
        m_pPageTree->SetFocus();
    return !changes;
}

LRESULT CTreePropSheet::OnTreeSelChanged(NMHDR&)
{
    RefreshCaption();
    return 0;
}

// False if the page that is on show refuses.
bool CTreePropSheet::LeaveCurrentPage()
{
    if (!IsPageShowing())
        return true;
    const CPropertyPage& page = *GetActivePage();
    NMHDR head{m_hWnd, 0, PSN_KILLACTIVE};
    if (page.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&head)) != 0)
        return false;
    page.ShowWindow(SW_HIDE);
    return true;
}

bool CTreePropSheet::IsPageShowing() const
{
    const CPropertyPage* page = GetActivePage();
    return page && (GetWindowLongA(page->m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0;
}

void CTreePropSheet::RefreshCaption()
{
    const HTREEITEM item = m_pPageTree->GetSelectedItem();
    if (!item)
        return;
    const std::string text = m_pPageTree->GetItemText(item);
    if (!IsPageShowing())
        m_pPageFrame->SetMessageText(MakeEmptyPageText(text));
    if (m_bPageCaption)
        m_pPageFrame->SetCaption(text, CaptionIcon(item));
}

HICON CTreePropSheet::CaptionIcon(HTREEITEM item)
{
    if (m_bTreeIcons)
        return m_treeImages.ExtractIcon(m_pPageTree->GetItemImage(item));
    if (!IsPageShowing())
        return {};
    CTabCtrl& tabs = *GetTabControl();
    return tabs.GetImageList().ExtractIcon(tabs.GetItemImage(tabs.GetCurSel()));
}

#include "platform/window/TreeCtrl.h"

#include "platform/window/Creation_p.h"
#include "platform/window/PeerAccess_p.h"
#include "platform/window/widgets/TreeWidget_p.h"

BOOL CTreeCtrl::Create(const RECT& area, CWnd* parent, UINT id)
{
    return MakeChild<TreeWidget>(*this, parent, id, area) != nullptr;
}

void CTreeCtrl::SetImageList(const CImageList& images)
{
    ForPeer<TreeWidget>(m_hWnd, [&images](TreeWidget& tree) { tree.SetImages(images.Shared()); });
}

HTREEITEM CTreeCtrl::InsertItem(const std::string& text, int image, HTREEITEM parent)
{
    return WithPeer<TreeWidget>(m_hWnd, HTREEITEM(), [&](TreeWidget& tree) {
        return HTREEITEM{tree.AddNode(text, image, TreeNode::Of(parent))};
    });
}

void CTreeCtrl::SetItemData(HTREEITEM item, DWORD_PTR data)
{
    if (item)
        TreeNode::Of(item)->m_data = data;
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM item) const
{
    return item ? TreeNode::Of(item)->m_data : 0;
}

std::string CTreeCtrl::GetItemText(HTREEITEM item) const
{
    return item ? TreeNode::Of(item)->Text() : std::string();
}

void CTreeCtrl::SetItemImage(HTREEITEM item, int image)
{
    if (item)
        TreeNode::Of(item)->SetImage(image);
}

int CTreeCtrl::GetItemImage(HTREEITEM item) const
{
    return item ? TreeNode::Of(item)->Image() : -1;
}

HTREEITEM CTreeCtrl::GetRootItem() const
{
    return WithPeer<TreeWidget>(m_hWnd, HTREEITEM(), [](TreeWidget& tree) { return HTREEITEM{tree.topLevelItem(0)}; });
}

HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM item) const
{
    return {item ? TreeNode::Of(item)->QTreeWidgetItem::parent() : nullptr};
}

HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM item) const
{
    return {item ? TreeNode::Of(item)->child(0) : nullptr};
}

HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM item) const
{
    return {item ? TreeNode::Of(item)->Sibling(1) : nullptr};
}

HTREEITEM CTreeCtrl::GetPrevSiblingItem(HTREEITEM item) const
{
    return {item ? TreeNode::Of(item)->Sibling(-1) : nullptr};
}

BOOL CTreeCtrl::Expand(HTREEITEM item, UINT code)
{
    return WithPeer<TreeWidget>(m_hWnd, false, [=](TreeWidget& tree) {
        const bool expands = item && code == TVE_EXPAND;
        if (expands)
            tree.ExpandSoon(*TreeNode::Of(item));
        return expands;
    });
}

HTREEITEM CTreeCtrl::GetSelectedItem() const
{
    return WithPeer<TreeWidget>(m_hWnd, HTREEITEM(), [](TreeWidget& tree) { return HTREEITEM{tree.SelectedNode()}; });
}

BOOL CTreeCtrl::SelectItem(HTREEITEM item)
{
    return WithPeer<TreeWidget>(m_hWnd, false, [item](TreeWidget& tree) {
        tree.setCurrentItem(TreeNode::Of(item));
        return HTREEITEM{tree.SelectedNode()} == item;
    });
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM item)
{
    return item && WithPeer<TreeWidget>(m_hWnd, false, [item](TreeWidget& tree) {
               tree.RemoveNode(*TreeNode::Of(item));
               return true;
           });
}

BOOL CTreeCtrl::DeleteAllItems()
{
    return WithPeer<TreeWidget>(m_hWnd, false, [](TreeWidget& tree) {
        tree.RemoveNodes();
        return true;
    });
}

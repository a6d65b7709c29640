#include "platform/window/TabCtrl.h"

#include "platform/window/Creation_p.h"
#include "platform/window/PeerAccess_p.h"
#include "platform/window/widgets/TabWidget_p.h"

namespace
{

RECT DesktopRect(const QRect& rect)
{
    return {rect.left(), rect.top(), rect.right() + 1, rect.bottom() + 1};
}

} // namespace

BOOL CTabCtrl::Create(const RECT& area, CWnd* parent, UINT id)
{
    return MakeChild<TabWidget>(*this, parent, id, area) != nullptr;
}

int CTabCtrl::GetItemCount() const
{
    return WithPeer<TabWidget>(m_hWnd, 0, [](TabWidget& tabs) { return tabs.count(); });
}

int CTabCtrl::InsertItem(int item, const std::string& text, int image)
{
    return WithPeer<TabWidget>(m_hWnd, -1, [&](TabWidget& tabs) { return tabs.AddTab(item, text, image); });
}

BOOL CTabCtrl::DeleteItem(int item)
{
    return WithPeer<TabWidget>(m_hWnd, false, [item](TabWidget& tabs) { return tabs.RemoveTab(item); });
}

std::string CTabCtrl::GetItemText(int item) const
{
    return WithPeer<TabWidget>(m_hWnd, std::string(), [item](TabWidget& tabs) { return tabs.Text(item); });
}

int CTabCtrl::GetItemImage(int item) const
{
    return WithPeer<TabWidget>(m_hWnd, -1, [item](TabWidget& tabs) { return tabs.Image(item); });
}

int CTabCtrl::GetCurSel() const
{
    return WithPeer<TabWidget>(m_hWnd, -1, [](TabWidget& tabs) { return tabs.currentIndex(); });
}

int CTabCtrl::SetCurSel(int item)
{
    return WithPeer<TabWidget>(m_hWnd, -1, [item](TabWidget& tabs) {
        const int before = tabs.currentIndex();
        tabs.Select(item);
        return before;
    });
}

void CTabCtrl::SetImageList(const CImageList& images)
{
    ForPeer<TabWidget>(m_hWnd, [&images](TabWidget& tabs) { tabs.SetImages(images); });
}

CImageList CTabCtrl::GetImageList() const
{
    return WithPeer<TabWidget>(m_hWnd, CImageList(), [](TabWidget& tabs) { return tabs.Images(); });
}

BOOL CTabCtrl::GetItemRect(int item, RECT* area) const
{
    return WithPeer<TabWidget>(m_hWnd, false, [=](TabWidget& tabs) {
        const bool stands = item >= 0 && item < tabs.count();
        *area = stands ? DesktopRect(tabs.TabArea(item)) : RECT();
        return stands;
    });
}

void CTabCtrl::AdjustRect(BOOL larger, RECT* area) const
{
    ForPeer<TabWidget>(m_hWnd, [=](TabWidget& tabs) {
        const QMargins border = tabs.Border();
        const QRect rect = ToolkitRect(*area);
        *area = DesktopRect(larger ? rect.marginsAdded(border) : rect.marginsRemoved(border));
    });
}

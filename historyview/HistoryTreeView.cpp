#include "historyview/HistoryTreeView.h"

#include "historyview/HistorySplitter.h"
#include "resources/ResourceIds.h"

#include "platform/system/Time.h"
#include "platform/window/DeviceContext.h"
#include "platform/window/Resource.h"

#include <unordered_map>

namespace
{

constexpr LONG kBandHeight = 22;

using PagesOfDays = std::unordered_map<std::string, std::vector<const CHistoryItem*>>;

PagesOfDays SortByDay(const CHistoryStore& store)
{
    PagesOfDays pages;
    for (const CHistoryItem& item : store.GetItems())
        pages[DayOf(item)].push_back(&item);
    return pages;
}

void FillFramed(CDC& dc, const RECT& area, COLORREF color)
{
    dc.FillSolidRect(area, color);
    dc.Draw3dRect(area, GetSysColor(COLOR_3DHIGHLIGHT), GetSysColor(COLOR_3DSHADOW));
}

} // namespace

std::string DayOf(const CHistoryItem& item)
{
    return CTime(item.GetTime()).Format("%Y-%m-%d");
}

const MessageMap& CHistoryTreeView::GetMessageMap() const
{
    static const MessageMap map{&CView::StaticMessageMap(),
                                {
                                    On(WM_CREATE, &CHistoryTreeView::OnCreate),
                                    On(WM_SIZE, &CHistoryTreeView::OnSize),
                                    OnNotify(IDC_HISTORY_TREE, TVN_SELCHANGED, &CHistoryTreeView::OnSelectionChanged),
                                }};
    return map;
}

LRESULT CHistoryTreeView::OnCreate(WPARAM, LPARAM)
{
    RECT client;
    GetClientRect(&client);
    m_title = AfxLoadString(IDS_HISTORY);
    if (Default() == -1 || !m_tree.Create(TreeArea(client.right, client.bottom), this, IDC_HISTORY_TREE))
        return -1;
    m_tree.SetWindowText(m_title);
    m_images.Create(IDR_HISTORY_LEVELS, kLevelImageSize);
    m_tree.SetImageList(m_images);
    RebuildTree();
    return 0;
}

RECT CHistoryTreeView::TreeArea(LONG width, LONG height) const
{
    return {0, kBandHeight, width, std::max(height, kBandHeight)};
}

LRESULT CHistoryTreeView::OnSize(WPARAM, LPARAM size)
{
    const auto [width, height] = SizeFromLParam(size);
    m_tree.MoveWindow(TreeArea(width, height));
    return 0;
}

void CHistoryTreeView::RebuildTree()
{
    m_tree.DeleteAllItems();
    const HTREEITEM root = m_tree.InsertItem(AfxLoadString(IDS_HISTORY), kHistoryLevel);
    m_tree.SetItemData(root, kHistoryLevel);
    m_store.LoadAll();
    AddDays(root);
    m_tree.Expand(root, TVE_EXPAND);
}

void CHistoryTreeView::AddDays(HTREEITEM root)
{
    const PagesOfDays pages = SortByDay(m_store);
    for (const std::string& name : m_store.GetDayNames())
    {
        const HTREEITEM day = m_tree.InsertItem(name, kDayLevel, root);
        m_tree.SetItemData(day, kDayLevel);
        const auto found = pages.find(name);
        if (found == pages.end())
            continue;
        for (const CHistoryItem* page : found->second)
            m_tree.SetItemData(m_tree.InsertItem(page->GetPageUrl(), kPageLevel, day), kPageLevel);
        m_tree.Expand(day, TVE_EXPAND);
    }
}

LRESULT CHistoryTreeView::OnSelectionChanged(NMHDR& head)
{
    const auto& change = reinterpret_cast<const NMTREEVIEW&>(head);
    m_selectedText = m_tree.GetItemText(change.hItem);
    if (const CWnd* detail = CHistorySplitter::PaneBeside(*this, 0, 1))
        detail->SendMessage(WM_SHOW_LEVEL, change.lParam, 0);
    return 0;
}

void CHistoryTreeView::OnDraw(CDC& dc)
{
    RECT client;
    GetClientRect(&client);
    const RECT band{client.left, client.top, client.right, client.top + kBandHeight};
    FillFramed(dc, band, GetSysColor(COLOR_3DFACE));
    dc.DrawText(m_title, band, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    FillFramed(dc, {client.left, band.bottom, client.right, client.bottom}, GetSysColor(COLOR_WINDOW));
}

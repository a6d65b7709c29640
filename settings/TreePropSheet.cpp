#include "settings/TreePropSheet.h"

#include "settings/ThemedPageFrame.h"
#include "settings/TreeWalk.h"

#include <new>

namespace
{

constexpr UINT kFrameId = 0xFFFF;
constexpr UINT kTreeId = 32494;
constexpr UINT kMeasuredTabId = 4660;
constexpr const char* kTreeName = "PageTree";

constexpr int kDefaultIcons = 2;
constexpr int kIconSize = 16;
constexpr LONG kTreeGap = 5; // between the tree and the frame

// What an override could not make is a lack of memory.
template <class Part>
std::unique_ptr<Part> Checked(std::unique_ptr<Part> part)
{
    if (!part)
        throw std::bad_alloc();
    return part;
}

} // namespace

CTreePropSheet::~CTreePropSheet() = default;

bool CTreePropSheet::SetViewOptions(bool treeMode, bool pageCaption, bool treeIcons)
{
    if (m_hWnd)
        return false;
    m_bTreeMode = treeMode;
    if (treeMode)
    {
        m_bPageCaption = pageCaption;
        m_bTreeIcons = treeIcons;
    }
    return true;
}

bool CTreePropSheet::SetDefaultTreeIcons(const CImageList& images)
{
    if (images.GetImageCount() != kDefaultIcons)
        return false;
    m_defaultImages = images;
    return true;
}

void CTreePropSheet::SetEmptyPageFormat(const std::string& format)
{
    m_emptyPageFormat = format;
}

bool CTreePropSheet::AttachPageIcon(CPropertyPage& page, const CImageList& images, int index)
{
    const HICON icon = images.ExtractIcon(index);
    if (!icon)
        return false;
    page.m_psp.hIcon = icon;
    page.m_psp.dwFlags |= PSP_USEHICON;
    return true;
}

void CTreePropSheet::ReleasePageIcon(CPropertyPage& page)
{
    page.m_psp.hIcon = {};
    page.m_psp.dwFlags &= ~PSP_USEHICON;
}

std::string CTreePropSheet::MakeEmptyPageText(const std::string& itemText)
{
    std::string text = m_emptyPageFormat;
    const std::size_t place = text.find("%s");
    return place == std::string::npos ? text : text.replace(place, 2, itemText);
}

std::unique_ptr<CTreeCtrl> CTreePropSheet::MakeTreeObject()
{
    return std::make_unique<CTreeCtrl>();
}

std::unique_ptr<CPageFrame> CTreePropSheet::MakePageFrame()
{
    return std::make_unique<CThemedPageFrame>();
}

const MessageMap& CTreePropSheet::GetMessageMap() const
{
    static const MessageMap map{&CPropertySheet::StaticMessageMap(),
                                {
                                    On(PSM_ADDPAGE, &CTreePropSheet::OnAddPage),
                                    On(PSM_REMOVEPAGE, &CTreePropSheet::OnRemovePage),
                                    On(PSM_SETCURSEL, &CTreePropSheet::OnSetCurSel),
                                    OnNotify(kTreeId, TVN_SELCHANGING, &CTreePropSheet::OnTreeSelChanging),
                                    OnNotify(kTreeId, TVN_SELCHANGED, &CTreePropSheet::OnTreeSelChanged),
                                }};
    return map;
}

BOOL CTreePropSheet::OnInitDialog()
{
    if (!m_bTreeMode)
        return CPropertySheet::OnInitDialog();
    EnableStackedTabs(FALSE);
    m_treeImages.Create(m_defaultImages.GetImageCount() > 0 ? m_defaultImages.GetImageWidth() : kIconSize);
    CPropertySheet::OnInitDialog();
    PlaceTree(PlacePageFrame());
    RebuildTree();
    SyncTreeWithSheet();
    return FALSE;
}

LONG CTreePropSheet::TreeWidth() const
{
    RECT units{0, 0, m_nTreeWidth * 2 / 3, 0};
    MapDialogRect(&units);
    return units.right;
}

// Puts the frame where the tabs are and makes room for the tree, whose area it gives.
RECT CTreePropSheet::PlacePageFrame()
{
    CTabCtrl& tabs = *GetTabControl();
    tabs.ShowWindow(SW_HIDE);
    tabs.EnableWindow(FALSE);
    RECT area;
    tabs.GetWindowRect(&area);
    ScreenToClient(&area);

    m_pPageFrame = Checked(MakePageFrame());
    m_pPageFrame->Create(area, this, kFrameId);
    m_pPageFrame->ShowCaption(m_bPageCaption);
    const LONG treeWidth = TreeWidth();
    Resize(treeWidth, 0, 0);
    CenterWindow();
    MoveChildren(treeWidth, 0);

    RECT tree = area;
    tree.right = tree.left + treeWidth - kTreeGap;
    const int height = MeasureTabHeight(area);
    m_pPageFrame->SetCaptionHeight(height);
    if (!m_bPageCaption)
        GiveUpCaption(tree, height);
    return tree;
}

// The room above the pages that the tabs had goes, and all moves up into it.
void CTreePropSheet::GiveUpCaption(RECT& tree, int height)
{
    CWnd& frame = *m_pPageFrame->GetFrameWindow();
    RECT area;
    frame.GetWindowRect(&area);
    ScreenToClient(&area);
    area.top += height;
    frame.MoveWindow(area);
    MoveChildren(0, -height);
    tree.bottom -= height;
    Resize(0, height / 2, height - height / 2);
}

int CTreePropSheet::MeasureTabHeight(const RECT& area)
{
    CTabCtrl measured;
    RECT tab;
    if (measured.Create(area, this, kMeasuredTabId))
    {
        measured.InsertItem(0, "");
        measured.GetItemRect(0, &tab);
        measured.DestroyWindow();
    }
    return tab.bottom - tab.top;
}

void CTreePropSheet::MoveChildren(LONG byX, LONG byY)
{
    for (HWND child = GetWindow(m_hWnd, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    {
        RECT area;
        ::GetWindowRect(child, &area);
        ScreenToClient(&area);
        ::MoveWindow(child, {area.left + byX, area.top + byY, area.right + byX, area.bottom + byY});
    }
}

void CTreePropSheet::Resize(LONG widthBy, LONG topBy, LONG bottomBy)
{
    RECT area;
    GetWindowRect(&area);
    MoveWindow({area.left, area.top + topBy, area.right + widthBy, area.bottom - bottomBy});
}

void CTreePropSheet::PlaceTree(const RECT& area)
{
    m_pPageTree = Checked(MakeTreeObject());
    m_pPageTree->Create(area, this, kTreeId);
    m_pPageTree->SetWindowText(kTreeName);
}

void CTreePropSheet::PostNcDestroy()
{
    m_pPageTree.reset();
    m_pPageFrame.reset();
    m_treeImages.DeleteImageList();
    CPropertySheet::PostNcDestroy();
}

// Ctrl+Tab and Ctrl+Shift+Tab.
BOOL CTreePropSheet::PreTranslateMessage(MSG* message)
{
    const bool turns = message->message == WM_KEYDOWN && message->wParam == VK_TAB && GetKeyState(VK_CONTROL) < 0;
    if (!m_pPageTree || !turns)
        return CPropertySheet::PreTranslateMessage(message);
    const HTREEITEM item = m_pPageTree->GetSelectedItem();
    m_pPageTree->SelectItem(GetKeyState(VK_SHIFT) < 0 ? PrevTreeItem(*m_pPageTree, item)
                                                      : NextTreeItem(*m_pPageTree, item));
    return TRUE;
}

#include "platform/window/PropertySheet.h"

#include "platform/text/CodePage.h"
#include "platform/window/Creation_p.h"
#include "platform/window/DialogBuilder_p.h"
#include "platform/window/DialogUnits_p.h"
#include "platform/window/ImageList.h"
#include "platform/window/KeyFilter_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/widgets/DialogWidget_p.h"
#include "platform/window/widgets/TabWidget_p.h"

#include <algorithm>
#include <array>

namespace
{

// In dialog units, as the desktop's guide has them.
constexpr int kMargin = 7;
constexpr int kGap = 4;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;
constexpr std::array kButtons{IDOK, IDCANCEL, ID_APPLY_NOW};

constexpr int kIconSize = 16;

// A key press on its way to PreTranslateMessage; LPARAM: the MSG. A number that no program's message has.
constexpr UINT kTranslateKey = 0xFFFF;

LRESULT Ask(const CWnd& page, UINT code)
{
    NMHDR head{::GetParent(page.m_hWnd), 0, code};
    return page.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&head));
}

QWidget* WidgetOf(HWND window)
{
    const auto record = WindowTable::Get().Find(window);
    return record ? &record->Peer()->Widget() : nullptr;
}

bool IsHidden(const CWnd& window)
{
    const QWidget* widget = WidgetOf(window.m_hWnd);
    return !widget || widget->isHidden();
}

ControlTemplate ButtonTemplate(int id, DWORD style, std::string_view text)
{
    return {ControlClass::Button, id, 0, 0, kButtonWidth, kButtonHeight, style, text};
}

} // namespace

struct CPropertySheet::Frame
{
    std::string caption;
    std::array<ControlTemplate, 4> controls{
        ControlTemplate{ControlClass::TabControl, AFX_IDC_TAB_CONTROL, 0, 0, 0, 0},
        ButtonTemplate(IDOK, CS_DEFAULT, "OK"),
        ButtonTemplate(IDCANCEL, CS_NONE, "Cancel"),
        ButtonTemplate(ID_APPLY_NOW, CS_DISABLED, "&Apply"),
    };
    DialogTemplate dialog{0, 0, 0, DS_SYSMENU, caption, controls};
};

CPropertySheet::CPropertySheet(std::string caption, CWnd* parent, UINT firstPage)
    : CDialog(0, parent), m_caption(std::move(caption)), m_nActive(static_cast<int>(firstPage))
{}

CPropertySheet::~CPropertySheet()
{
    for (CPropertyPage* page : m_pages)
        page->m_pSheet = nullptr;
}

void CPropertySheet::AddPage(CPropertyPage* page)
{
    if (m_hWnd)
        SendMessage(PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(page));
    else
        JoinPage(page);
}

void CPropertySheet::RemovePage(CPropertyPage* page)
{
    const int index = GetPageIndex(page);
    if (m_hWnd && index >= 0)
        SendMessage(PSM_REMOVEPAGE, static_cast<WPARAM>(index));
    else
        DropPage(index);
}

BOOL CPropertySheet::SetActivePage(int index)
{
    if (m_hWnd)
        return SendMessage(PSM_SETCURSEL, static_cast<WPARAM>(index)) != 0;
    if (!GetPage(index))
        return FALSE;
    m_nActive = index;
    return TRUE;
}

BOOL CPropertySheet::SetActivePage(CPropertyPage* page)
{
    return SetActivePage(GetPageIndex(page));
}

int CPropertySheet::GetActiveIndex() const
{
    return m_nActive;
}

CPropertyPage* CPropertySheet::GetActivePage() const
{
    return GetPage(m_nActive);
}

int CPropertySheet::GetPageCount() const
{
    return static_cast<int>(m_pages.size());
}

CPropertyPage* CPropertySheet::GetPage(int index) const
{
    const auto place = static_cast<std::size_t>(index);
    return place < m_pages.size() ? m_pages[place] : nullptr;
}

int CPropertySheet::GetPageIndex(const CPropertyPage* page) const
{
    const auto place = std::ranges::find(m_pages, page);
    return place == m_pages.end() ? -1 : static_cast<int>(place - m_pages.begin());
}

CTabCtrl* CPropertySheet::GetTabControl()
{
    return &m_tabs;
}

const DialogTemplate* CPropertySheet::FindTemplate()
{
    m_frame = std::make_unique<Frame>();
    m_frame->caption = AnsiToUtf8(m_caption);
    m_frame->dialog.caption = m_frame->caption;
    return m_pages.empty() ? nullptr : &m_frame->dialog;
}

BOOL CPropertySheet::OnInitDialog()
{
    m_tabs.SubclassDlgItem(AFX_IDC_TAB_CONTROL, this);
    FilterKeys();
    for (CPropertyPage* page : m_pages)
        InsertTab(*page);
    LayOut();
    const int first = GetActivePage() ? m_nActive : 0;
    m_nActive = -1;
    m_bLeft = false;
    bool shows = ShowPage(first);
    for (int index = 0; !shows && index < GetPageCount(); ++index)
        shows = ShowPage(index);
    return FALSE;
}

void CPropertySheet::FilterKeys()
{
    const auto take = [sheet = std::weak_ptr(RecordOf(this))](MSG& message) {
        const auto record = sheet.lock();
        return record && record->SendFromToolkit(kTranslateKey, 0, reinterpret_cast<LPARAM>(&message)) != 0;
    };
    new KeyFilter(*WidgetOf(m_hWnd), take);
}

void CPropertySheet::LayOut()
{
    QWidget& sheet = *WidgetOf(m_hWnd);
    const DialogUnits units(sheet.fontMetrics());
    const QPoint margin = units.Point(kMargin, kMargin);
    const QPoint gap = units.Point(kGap, kGap);
    const QPoint button = units.Point(kButtonWidth, kButtonHeight);
    const int count = static_cast<int>(kButtons.size());

    QSize largest(count * (button.x() + gap.x()), 0);
    for (CPropertyPage* page : m_pages)
    {
        if (const DialogTemplate* source = page->FindTemplate())
        {
            const QPoint corner = units.Point(source->width, source->height);
            largest = largest.expandedTo({corner.x(), corner.y()});
        }
    }
    auto& tabs = *static_cast<TabWidget*>(WidgetOf(m_tabs.m_hWnd));
    tabs.setGeometry({margin, largest.grownBy(tabs.Border())});

    const int top = tabs.geometry().bottom() + 1 + margin.y();
    int left = tabs.geometry().right() + 1 - count * button.x() - (count - 1) * gap.x();
    for (const int id : kButtons)
    {
        WidgetOf(GetDlgItem(id))->setGeometry(left, top, button.x(), button.y());
        left += button.x() + gap.x();
    }
    sheet.setFixedSize(tabs.geometry().right() + 1 + margin.x(), top + button.y() + margin.y());
}

void CPropertySheet::InsertTab(CPropertyPage& page)
{
    int image = -1;
    if (page.m_psp.dwFlags & PSP_USEHICON)
    {
        CImageList images = m_tabs.GetImageList();
        if (images.GetImageWidth() == 0)
            images.Create(kIconSize);
        image = images.Add(page.m_psp.hIcon);
        m_tabs.SetImageList(images);
    }
    m_tabs.InsertItem(GetPageIndex(&page), page.Title(), image);
}

bool CPropertySheet::JoinPage(CPropertyPage* page)
{
    if (!page || page->m_pSheet)
        return false;
    page->m_pSheet = this;
    m_pages.push_back(page);
    if (m_tabs.m_hWnd)
        InsertTab(*page);
    return true;
}

bool CPropertySheet::DropPage(int index)
{
    CPropertyPage* page = GetPage(index);
    if (!page)
        return false;
    page->DestroyWindow();
    page->m_pSheet = nullptr;
    m_pages.erase(m_pages.begin() + index);
    m_tabs.DeleteItem(index);
    if (index < m_nActive)
        --m_nActive;
    else if (index == m_nActive && m_hWnd)
    {
        m_nActive = -1;
        m_bLeft = false;
        ShowPage(std::min(index, GetPageCount() - 1));
    }
    ShowModified();
    return true;
}

bool CPropertySheet::MakePage(CPropertyPage& page)
{
    if (page.m_hWnd)
        return true;
    const DialogTemplate* source = page.FindTemplate();
    if (!source)
        return false;
    auto& tabs = *static_cast<TabWidget*>(WidgetOf(m_tabs.m_hWnd));
    const auto record = BuildPage(*source, RecordOf(this), tabs.geometry().marginsRemoved(tabs.Border()), &tabs);
    page.m_bModified = false;
    record->Attach(page, true);
    SendFirst(*record, WM_INITDIALOG);
    return !record->IsGone();
}

bool CPropertySheet::MayLeave()
{
    const CPropertyPage* page = GetActivePage();
    if (!page || m_bLeft || IsHidden(*page))
        return true;
    if (Ask(*page, PSN_KILLACTIVE) != 0 || !IsWindow(m_hWnd))
        return false;
    m_bLeft = page == GetActivePage();
    return true;
}

bool CPropertySheet::ShowPage(int index)
{
    CPropertyPage* const next = GetPage(index);
    CPropertyPage* const current = GetActivePage();
    if (!next)
        return false;
    if (next == current && !m_bLeft && !IsHidden(*next))
        return true;
    if (!MayLeave())
        return false;
    const bool takes = MakePage(*next) && Ask(*next, PSN_SETACTIVE) == 0;
    // What was asked may have changed the sheet.
    const int place = GetPageIndex(next);
    if (!IsWindow(m_hWnd) || current != GetActivePage())
        return false;
    const bool returns = m_bLeft && !takes && next != current;
    m_bLeft = false;
    if (returns)
        Ask(*current, PSN_SETACTIVE);
    if (!takes || place < 0)
        return false;
    m_nActive = place;
    m_tabs.SetCurSel(place);
    PutOnShow(*next);
    return true;
}

void CPropertySheet::PutOnShow(CPropertyPage& page)
{
    QWidget* widget = WidgetOf(page.m_hWnd);
    const QWidget* focus = widget->window()->focusWidget();
    const bool takesFocus = widget->isHidden() && (!focus || std::ranges::any_of(m_pages, [focus](const auto* other) {
                                const QWidget* surface = WidgetOf(other->m_hWnd);
                                return surface && surface->isAncestorOf(focus);
                            }));
    widget->show();
    widget->raise();
    if (takesFocus)
        FocusFirstControl(*widget);
    for (const CPropertyPage* other : m_pages)
    {
        if (other != &page && other->m_hWnd)
            other->ShowWindow(SW_HIDE);
    }
}

bool CPropertySheet::ApplyPages()
{
    if (!MayLeave())
        return false;
    const auto pages = m_pages;
    for (CPropertyPage* page : pages)
    {
        if (GetPageIndex(page) < 0 || !page->m_hWnd || Ask(*page, PSN_APPLY) == PSNRET_NOERROR)
            continue;
        if (IsWindow(m_hWnd))
            SetActivePage(page);
        return false;
    }
    return IsWindow(m_hWnd);
}

void CPropertySheet::OnOK()
{
    if (ApplyPages())
        EndDialog(IDOK);
}

void CPropertySheet::OnApplyNow()
{
    if (!ApplyPages())
        return;
    for (CPropertyPage* page : m_pages)
        page->m_bModified = false;
    ShowModified();
    if (m_bLeft)
        ShowPage(m_nActive);
}

void CPropertySheet::OnCancel()
{
    const auto pages = m_pages;
    for (const CPropertyPage* page : pages)
    {
        if (GetPageIndex(page) >= 0 && page->m_hWnd)
            Ask(*page, PSN_RESET);
    }
    EndDialog(IDCANCEL);
}

void CPropertySheet::Note(HWND window, bool modified)
{
    const auto page = std::ranges::find(m_pages, window, &CPropertyPage::m_hWnd);
    if (page == m_pages.end())
        return;
    (*page)->m_bModified = modified;
    ShowModified();
}

void CPropertySheet::ShowModified() const
{
    const bool modified = std::ranges::any_of(m_pages, [](const CPropertyPage* page) { return page->m_bModified; });
    ::EnableWindow(GetDlgItem(ID_APPLY_NOW), modified);
}

LRESULT CPropertySheet::OnTabChanged(NMHDR&)
{
    const int wanted = m_tabs.GetCurSel();
    m_tabs.SetCurSel(m_nActive);
    SetActivePage(wanted);
    return 0;
}

BOOL CPropertySheet::PreTranslateMessage(MSG* message)
{
    const bool turns = message->message == WM_KEYDOWN && message->wParam == VK_TAB && GetKeyState(VK_CONTROL) < 0;
    const int count = GetPageCount();
    if (turns && count > 0)
        SetActivePage((m_nActive + (GetKeyState(VK_SHIFT) < 0 ? count - 1 : 1)) % count);
    return turns;
}

const MessageMap& CPropertySheet::GetMessageMap() const
{
    return StaticMessageMap();
}

const MessageMap& CPropertySheet::StaticMessageMap()
{
    static const MessageMap map{&CDialog::StaticMessageMap(),
                                {
                                    OnCommand(ID_APPLY_NOW, &CPropertySheet::OnApplyNow),
                                    OnNotify(AFX_IDC_TAB_CONTROL, TCN_SELCHANGE, &CPropertySheet::OnTabChanged),
                                }};
    return map;
}

LRESULT CPropertySheet::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case PSM_SETCURSEL:
        return ShowPage(static_cast<int>(wParam));
    case PSM_ADDPAGE:
        return JoinPage(reinterpret_cast<CPropertyPage*>(lParam));
    case PSM_REMOVEPAGE:
        return DropPage(static_cast<int>(wParam));
    case PSM_CHANGED:
    case PSM_UNCHANGED:
        Note({wParam}, message == PSM_CHANGED);
        return 0;
    case kTranslateKey:
        return PreTranslateMessage(reinterpret_cast<MSG*>(lParam));
    default:
        return CDialog::DefWindowProc(message, wParam, lParam);
    }
}

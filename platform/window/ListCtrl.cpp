#include "platform/window/Controls.h"
#include "platform/window/Creation_p.h"
#include "platform/window/PeerAccess_p.h"
#include "platform/window/ProgressWords_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/widgets/ListWidget_p.h"

int CButton::GetCheck() const
{
    return static_cast<int>(SendMessage(BM_GETCHECK));
}

void CButton::SetCheck(int check) const
{
    SendMessage(BM_SETCHECK, static_cast<WPARAM>(check));
}

DWORD CProgressCtrl::GetPos() const
{
    const auto record = WindowTable::Get().Find(m_hWnd);
    if (!record || !record->IsProgress())
        return 0;
    return static_cast<DWORD>(record->AnswerProgress(PBM_GETPOS, 0, 0));
}

BOOL CListCtrl::Create(const RECT& area, CWnd* parent, UINT id)
{
    bool made = false;
    RunOnDesktop([&] {
        auto* list = MakeChild<ListWidget>(*this, parent, id, area);
        made = list != nullptr;
        if (made)
            list->EnableEnter();
    });
    return made;
}

void CListCtrl::SetImageList(const CImageList& images)
{
    ForPeer<ListWidget>(m_hWnd, [&images](ListWidget& list) { list.SetImages(images.Shared()); });
}

void CListCtrl::SetPlaceholderText(const std::string& text)
{
    ForPeer<ListWidget>(m_hWnd, [&text](ListWidget& list) { list.SetPlaceholder(ToolkitText(text)); });
}

void CListCtrl::SetRedraw(BOOL redraw)
{
    ForPeer<ListWidget>(m_hWnd, [redraw](ListWidget& list) { list.SetRedraw(redraw); });
}

DWORD CListCtrl::GetExtendedStyle() const
{
    return WithPeer<ListWidget>(m_hWnd, DWORD(0), [](ListWidget& list) { return list.Style(); });
}

DWORD CListCtrl::SetExtendedStyle(DWORD style)
{
    return WithPeer<ListWidget>(m_hWnd, DWORD(0), [style](ListWidget& list) {
        const DWORD before = list.Style();
        list.SetStyle(style);
        return before;
    });
}

int CListCtrl::InsertColumn(int column, const std::string& caption, int width)
{
    return WithPeer<ListWidget>(m_hWnd, -1,
                                [&](ListWidget& list) { return list.AddColumn(column, ToolkitText(caption), width); });
}

int CListCtrl::GetColumnCount() const
{
    return WithPeer<ListWidget>(m_hWnd, 0, [](ListWidget& list) { return list.columnCount(); });
}

BOOL CListCtrl::DeleteColumn(int column)
{
    return WithPeer<ListWidget>(m_hWnd, false, [column](ListWidget& list) { return list.RemoveColumn(column); });
}

int CListCtrl::GetItemCount() const
{
    return WithPeer<ListWidget>(m_hWnd, 0, [](ListWidget& list) { return list.topLevelItemCount(); });
}

int CListCtrl::InsertItem(int row, const std::string& text, int image)
{
    return WithPeer<ListWidget>(m_hWnd, -1, [&](ListWidget& list) { return list.AddRow(row, text, image); });
}

int CListCtrl::GetFirstSelectedItem() const
{
    return WithPeer<ListWidget>(m_hWnd, -1, [](ListWidget& list) { return list.FirstSelectedRow(); });
}

BOOL CListCtrl::SetItemText(int row, int column, const std::string& text)
{
    return WithPeer<ListWidget>(m_hWnd, false, [&](ListWidget& list) { return list.SetCell(row, column, text); });
}

std::string CListCtrl::GetItemText(int row, int column) const
{
    return WithPeer<ListWidget>(m_hWnd, std::string(), [&](ListWidget& list) { return list.Cell(row, column); });
}

BOOL CListCtrl::DeleteAllItems()
{
    return WithPeer<ListWidget>(m_hWnd, false, [](ListWidget& list) {
        list.RemoveRows();
        return true;
    });
}

BOOL CListCtrl::GetCheck(int row) const
{
    return WithPeer<ListWidget>(m_hWnd, false, [row](ListWidget& list) { return list.IsTicked(row); });
}

BOOL CListCtrl::SetCheck(int row, BOOL check)
{
    return WithPeer<ListWidget>(m_hWnd, false, [=](ListWidget& list) { return list.Tick(row, check); });
}

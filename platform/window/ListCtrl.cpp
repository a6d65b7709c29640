#include "platform/window/Controls.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/ListWidget_p.h"
#include "platform/window/ProgressWords_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"

namespace
{

// Runs on the user-interface thread with the list behind the handle; else the answer is `missing`.
template <class Action>
auto WithList(HWND window, decltype(std::declval<Action>()(std::declval<ListWidget&>())) missing, Action action)
{
    auto answer = missing;
    RunOnDesktop([&] {
        const auto record = WindowTable::Get().Find(window);
        if (auto* list = record ? dynamic_cast<ListWidget*>(record->Peer()) : nullptr)
            answer = action(*list);
    });
    return answer;
}

} // namespace

DWORD CProgressCtrl::GetPos() const
{
    const auto record = WindowTable::Get().Find(m_hWnd);
    if (!record || !record->IsProgress())
        return 0;
    return static_cast<DWORD>(record->AnswerProgress(PBM_GETPOS, 0, 0));
}

DWORD CListCtrl::GetExtendedStyle() const
{
    return WithList(m_hWnd, DWORD(0), [](ListWidget& list) { return list.Style(); });
}

DWORD CListCtrl::SetExtendedStyle(DWORD style)
{
    return WithList(m_hWnd, DWORD(0), [style](ListWidget& list) {
        const DWORD before = list.Style();
        list.SetStyle(style);
        return before;
    });
}

int CListCtrl::InsertColumn(int column, const std::string& caption, int width)
{
    return WithList(m_hWnd, -1, [&](ListWidget& list) { return list.AddColumn(column, ToolkitText(caption), width); });
}

int CListCtrl::GetColumnCount() const
{
    return WithList(m_hWnd, 0, [](ListWidget& list) { return list.columnCount(); });
}

int CListCtrl::GetItemCount() const
{
    return WithList(m_hWnd, 0, [](ListWidget& list) { return list.topLevelItemCount(); });
}

int CListCtrl::InsertItem(int row, const std::string& text)
{
    return WithList(m_hWnd, -1, [&](ListWidget& list) { return list.AddRow(row, text); });
}

BOOL CListCtrl::SetItemText(int row, int column, const std::string& text)
{
    return WithList(m_hWnd, false, [&](ListWidget& list) { return list.SetCell(row, column, text); });
}

std::string CListCtrl::GetItemText(int row, int column) const
{
    return WithList(m_hWnd, std::string(), [&](ListWidget& list) { return list.Cell(row, column); });
}

BOOL CListCtrl::DeleteAllItems()
{
    return WithList(m_hWnd, false, [](ListWidget& list) {
        list.RemoveRows();
        return true;
    });
}

BOOL CListCtrl::GetCheck(int row) const
{
    return WithList(m_hWnd, false, [row](ListWidget& list) { return list.IsTicked(row); });
}

BOOL CListCtrl::SetCheck(int row, BOOL check)
{
    return WithList(m_hWnd, false, [=](ListWidget& list) { return list.Tick(row, check); });
}

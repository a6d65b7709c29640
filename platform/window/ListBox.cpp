#include "platform/window/Controls.h"
#include "platform/window/PeerAccess_p.h"
#include "platform/window/widgets/ListBoxWidget_p.h"

namespace
{

// Runs with the row if it is there.
template <class Action>
auto WithRow(HWND box, int row, decltype(std::declval<Action>()(std::declval<ListBoxWidget::Row&>())) missing,
             Action action)
{
    return WithPeer<ListBoxWidget>(box, missing, [&](ListBoxWidget& list) {
        ListBoxWidget::Row* found = list.At(row);
        return found ? action(*found) : missing;
    });
}

} // namespace

int CListBox::AddString(const std::string& text)
{
    return WithPeer<ListBoxWidget>(m_hWnd, LB_ERR, [&text](ListBoxWidget& list) {
        list.addItem(new ListBoxWidget::Row(text));
        return list.count() - 1;
    });
}

int CListBox::DeleteString(int row)
{
    return WithPeer<ListBoxWidget>(m_hWnd, LB_ERR, [row](ListBoxWidget& list) {
        const std::unique_ptr<QListWidgetItem> gone(list.takeItem(row));
        return gone ? list.count() : LB_ERR;
    });
}

int CListBox::GetCount() const
{
    return WithPeer<ListBoxWidget>(m_hWnd, LB_ERR, [](ListBoxWidget& list) { return list.count(); });
}

std::string CListBox::GetText(int row) const
{
    return WithRow(m_hWnd, row, std::string(), [](const ListBoxWidget::Row& found) { return found.m_text; });
}

std::vector<int> CListBox::GetSelItems() const
{
    return WithPeer<ListBoxWidget>(m_hWnd, std::vector<int>(), [](ListBoxWidget& list) {
        std::vector<int> rows;
        for (int row = 0; row < list.count(); ++row)
        {
            if (list.item(row)->isSelected())
                rows.push_back(row);
        }
        return rows;
    });
}

int CListBox::SetSel(int row, BOOL select)
{
    return WithRow(m_hWnd, row, LB_ERR, [select](ListBoxWidget::Row& found) {
        found.setSelected(select);
        return 0;
    });
}

int CListBox::SetItemData(int row, DWORD_PTR data)
{
    return WithRow(m_hWnd, row, LB_ERR, [data](ListBoxWidget::Row& found) {
        found.m_data = data;
        return 0;
    });
}

DWORD_PTR CListBox::GetItemData(int row) const
{
    return WithRow(m_hWnd, row, DWORD_PTR(0), [](const ListBoxWidget::Row& found) { return found.m_data; });
}

#include "harvest/WindowList.h"

#include "base/UrlList.h"
#include "harvest/BrowserWindows.h"
#include "resources/ResourceIds.h"

#include "platform/com/ComError.h"
#include "platform/window/Resource.h"

namespace
{

constexpr int kTitleColumn = 0;
constexpr int kUrlColumn = 1;
constexpr int kTitleWidth = 200;
constexpr int kUrlWidth = 400;

} // namespace

void CWindowList::Prepare()
{
    InsertColumn(kTitleColumn, AfxLoadString(IDS_COLUMN_TITLE), kTitleWidth);
    InsertColumn(kUrlColumn, AfxLoadString(IDS_COLUMN_URL), kUrlWidth);
    SetExtendedStyle(GetExtendedStyle() | LVS_EX_GRIDLINES | LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_FLATSB);
}

void CWindowList::Refill(IShellWindows* windows)
{
    DeleteAllItems();
    if (!windows)
        return;
    try
    {
        const LONG count = CountWindows(*windows);
        for (LONG index = 0; index < count; ++index)
        {
            if (const CComPtr<IHTMLDocument2> document = DocumentOfWindow(*windows, index))
                AddRow(index, *document.Get());
        }
    }
    catch (const _com_error&)
    {}
}

void CWindowList::AddRow(LONG index, IHTMLDocument2& document)
{
    std::string title = ReadText(document, &IHTMLDocument2::get_title);
    if (title.empty())
        title = AfxLoadString(IDS_UNTITLED_PAGE);
    const int row = InsertItem(index, title);
    SetItemText(row, kUrlColumn, ReadText(document, &IHTMLDocument2::get_URL));
    SetCheck(row);
}

bool CWindowList::HasTick() const
{
    for (int row = 0; row < GetItemCount(); ++row)
    {
        if (GetCheck(row))
            return true;
    }
    return false;
}

void CWindowList::TickAll()
{
    for (int row = 0; row < GetItemCount(); ++row)
        SetCheck(row);
}

void CWindowList::ReverseTicks()
{
    for (int row = 0; row < GetItemCount(); ++row)
        SetCheck(row, !GetCheck(row));
}

void CWindowList::AddTickedPages(CUrlList& pages) const
{
    for (int row = 0; row < GetItemCount(); ++row)
    {
        if (GetCheck(row))
            pages.AddTailOnce(GetItemText(row, kUrlColumn));
    }
}

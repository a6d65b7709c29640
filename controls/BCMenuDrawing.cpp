// How BCMenu's entries look, from left to right: tick or picture, text, shortcut, the arrow of a popup.
#include "controls/BCMenu.h"

#include <algorithm>

namespace
{

// In device-independent pixels.
constexpr LONG kMargin = 6;
constexpr LONG kPictureSize = 16;
constexpr LONG kGap = 8;          // between picture and text
constexpr LONG kShortcutGap = 24; // at least, between text and shortcut
constexpr LONG kArrowWidth = 16;
constexpr LONG kRowMargin = 4; // above and below text and picture
constexpr LONG kSeparatorHeight = 9;
constexpr LONG kLongestText = 480;

struct Texts
{
    std::string text;
    std::string shortcut;
};

Texts TextsOf(const BCMenuItem& item)
{
    const std::string whole = item.Text();
    const std::size_t tab = whole.find('\t');
    if (tab == std::string::npos)
        return {whole, {}};
    return {whole.substr(0, tab), whole.substr(tab + 1)};
}

LONG PictureSizeOf(const BCMenuItem& item)
{
    return item.m_images ? std::max<LONG>(kPictureSize, item.m_images->GetImageWidth()) : kPictureSize;
}

// Of what stands left of the text.
LONG TextStartOf(const BCMenuItem& item)
{
    return kMargin + PictureSizeOf(item) + kGap + std::max(0, item.m_nIndent);
}

COLORREF TextColorOf(const BCMenuItem& item, UINT state)
{
    if (state & ODS_DISABLED)
        return GetSysColor(COLOR_GRAYTEXT);
    if (state & ODS_SELECTED)
        return GetSysColor(COLOR_HIGHLIGHTTEXT);
    return item.m_color ? item.m_color : GetSysColor(COLOR_MENUTEXT);
}

// A quarter of the way from one colour to the other.
COLORREF Quarter(COLORREF from, COLORREF to)
{
    COLORREF mixed = 0;
    for (int shift = 0; shift < 24; shift += 8)
        mixed |= ((from >> shift & 0xFF) * 3 + (to >> shift & 0xFF)) / 4 << shift;
    return mixed;
}

void DrawSeparator(CDC& dc, const RECT& row)
{
    const LONG middle = (row.top + row.bottom) / 2;
    const COLORREF line = Quarter(GetSysColor(COLOR_MENU), GetSysColor(COLOR_MENUTEXT));
    dc.FillSolidRect({row.left + kMargin, middle, row.right - kMargin, middle + 1}, line);
}

// The highlight, or around an entry that cannot be chosen its frame.
void DrawBackground(CDC& dc, const RECT& row, UINT state)
{
    const COLORREF mark = GetSysColor(COLOR_HIGHLIGHT);
    if (!(state & ODS_SELECTED))
        return;
    if (state & ODS_DISABLED)
        dc.Draw3dRect(row, mark, mark);
    else
        dc.FillSolidRect(row, mark);
}

void DrawPicture(CDC& dc, const BCMenuItem& item, const RECT& row, UINT state)
{
    const bool ticked = state & ODS_CHECKED;
    const LONG size = PictureSizeOf(item);
    const LONG left = row.left + kMargin;
    const LONG top = (row.top + row.bottom - size) / 2;
    const int number = ticked ? item.m_nTickedPicture : item.m_nPicture;
    const HICON icon = item.m_images && number >= 0 ? item.m_images->ExtractIcon(number) : HICON();
    const bool drawn = dc.DrawIcon(left, top, icon, size, state & ODS_DISABLED);
    if (ticked && !drawn)
        dc.DrawFrameControl({left, top, left + size, top + size}, DFC_MENU, DFCS_MENUCHECK);
}

void DrawTexts(CDC& dc, const BCMenuItem& item, const RECT& row, UINT state)
{
    const Texts texts = TextsOf(item);
    const RECT area{row.left + TextStartOf(item), row.top, row.right - kMargin - kArrowWidth, row.bottom};
    const UINT prefixes = state & ODS_NOACCEL ? DT_HIDEPREFIX : 0;
    dc.DrawText(texts.shortcut, area, DT_RIGHT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    RECT rest = area;
    if (!texts.shortcut.empty())
        rest.right -= kShortcutGap / 2 + dc.GetTextExtent(texts.shortcut).cx;
    dc.DrawText(texts.text, rest, DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | prefixes);
}

} // namespace

BOOL BCMenu::MeasureItem(MEASUREITEMSTRUCT& asked)
{
    const BCMenuItem* const item = asked.CtlType == ODT_MENU ? RecordOf(asked.itemData) : nullptr;
    if (!item || !asked.hDC)
        return FALSE;
    const Texts texts = TextsOf(*item);
    const SIZE text = asked.hDC->GetTextExtent(texts.text);
    LONG width = TextStartOf(*item) + std::min(kLongestText, text.cx) + kArrowWidth + kMargin;
    if (!texts.shortcut.empty())
        width += kShortcutGap + std::min(kLongestText, asked.hDC->GetTextExtent(texts.shortcut).cx);
    LONG height = std::max(text.cy, PictureSizeOf(*item)) + 2 * kRowMargin;
    if (item->m_nFlags & MF_SEPARATOR)
        height = kSeparatorHeight;
    asked.itemWidth = static_cast<UINT>(width);
    asked.itemHeight = static_cast<UINT>(item->m_nHeight >= 0 ? item->m_nHeight : height);
    return TRUE;
}

BOOL BCMenu::DrawItem(const DRAWITEMSTRUCT& asked)
{
    const BCMenuItem* const item = asked.CtlType == ODT_MENU ? RecordOf(asked.itemData) : nullptr;
    if (!item || !asked.hDC)
        return FALSE;
    CDC& dc = *asked.hDC;
    const RECT& row = asked.rcItem;
    if (item->m_nFlags & MF_SEPARATOR)
    {
        DrawSeparator(dc, row);
        return TRUE;
    }
    DrawBackground(dc, row, asked.itemState);
    dc.SetTextColor(TextColorOf(*item, asked.itemState));
    DrawPicture(dc, *item, row, asked.itemState);
    DrawTexts(dc, *item, row, asked.itemState);
    const LONG right = row.right - kMargin;
    if (item->m_nFlags & MF_POPUP)
        dc.DrawFrameControl({right - kArrowWidth, row.top, right, row.bottom}, DFC_MENU, DFCS_MENUARROW);
    return TRUE;
}

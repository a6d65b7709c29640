#include "settings/PageFrame.h"

namespace
{

constexpr int kIconLeft = 3;
constexpr int kIconGap = 3;
constexpr int kTextGap = 2;

BYTE Blend(COLORREF from, COLORREF to, int shift, double share)
{
    const auto first = static_cast<double>((from >> shift) & 0xFF);
    const auto last = static_cast<double>((to >> shift) & 0xFF);
    return static_cast<BYTE>(first + (last - first) * share);
}

void Redraw(CWnd* window, const RECT& area)
{
    if (window && window->GetSafeHwnd())
        window->InvalidateRect(area);
}

} // namespace

COLORREF CaptionColor(COLORREF from, COLORREF to, LONG line, LONG count)
{
    const double share = static_cast<double>(line) / static_cast<double>(count);
    COLORREF color = 0;
    for (const int shift : {0, 8, 16})
        color |= static_cast<COLORREF>(Blend(from, to, shift, share)) << shift;
    return color;
}

void CPageFrame::ShowCaption(BOOL show)
{
    m_bShowCaption = show;
    RedrawCaption();
}

void CPageFrame::SetCaptionHeight(int height)
{
    m_nCaptionHeight = height;
    RedrawCaption();
}

void CPageFrame::SetCaption(const std::string& text, HICON icon)
{
    m_caption = text;
    m_hCaptionIcon = icon;
    RedrawCaption();
}

void CPageFrame::SetMessageText(const std::string& text)
{
    m_message = text;
    RedrawMessage();
}

void CPageFrame::SetMessageFormat(UINT format)
{
    m_messageFormat = format;
    RedrawMessage();
}

void CPageFrame::RedrawCaption()
{
    Redraw(GetFrameWindow(), CalcCaptionArea(nullptr));
}

void CPageFrame::RedrawMessage()
{
    Redraw(GetFrameWindow(), CalcMessageArea(nullptr));
}

void CPageFrame::Draw(CDC& dc)
{
    if (m_bShowCaption)
        DrawCaption(dc, CalcCaptionArea(&dc), m_caption, m_hCaptionIcon);
    DrawMessage(dc, CalcMessageArea(&dc), m_message);
}

RECT CPageFrame::ClientArea()
{
    RECT area;
    if (CWnd* window = GetFrameWindow())
        window->GetClientRect(&area);
    return area;
}

RECT CPageFrame::CalcMessageArea(CDC*)
{
    RECT area = ClientArea();
    if (m_bShowCaption)
        area.top += m_nCaptionHeight + 1;
    return area;
}

void CPageFrame::DrawMessage(CDC& dc, const RECT& area, const std::string& text)
{
    dc.DrawText(text, area, m_messageFormat);
}

RECT CPageFrame::CalcCaptionArea(CDC*)
{
    RECT area = ClientArea();
    area.bottom = area.top + (m_bShowCaption ? m_nCaptionHeight : 0);
    return area;
}

void CPageFrame::DrawCaption(CDC& dc, const RECT& area, const std::string& text, HICON icon)
{
    const COLORREF from = GetSysColor(COLOR_INACTIVECAPTION);
    COLORREF to = dc.GetPixel(area.right - 1, area.top);
    if (to == CLR_INVALID)
        to = GetSysColor(COLOR_3DFACE);
    const LONG width = area.right - area.left;
    for (LONG line = 0; line < width; ++line)
    {
        const LONG left = area.left + line;
        dc.FillSolidRect({left, area.top, left + 1, area.bottom}, CaptionColor(from, to, line, width));
    }

    RECT place = area;
    if (icon)
    {
        place.left += kIconLeft;
        dc.DrawIcon(place.left, area.top + (area.bottom - area.top - kCaptionIconSize) / 2, icon, kCaptionIconSize);
        place.left += kCaptionIconSize + kIconGap;
    }
    place.left += kTextGap;
    const COLORREF before = dc.SetTextColor(GetSysColor(COLOR_CAPTIONTEXT));
    dc.DrawText(text, place, DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    dc.SetTextColor(before);
}

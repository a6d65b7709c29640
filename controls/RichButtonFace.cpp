// The face of the rich button: the desktop's push button in the colours of the look, in front of it the box of a check
// box, the caption, and the arrow of a menu.
#include "controls/RichButton.h"

#include "platform/window/OwnerDraw.h"

namespace
{

// In device-independent pixels.
constexpr LONG kMargin = 6;
constexpr LONG kBoxWidth = 20;
constexpr LONG kArrowWidth = 14;
constexpr LONG kFocusInset = 3;

} // namespace

const CRichButton::Colors& CRichButton::ColorsOf(UINT state) const
{
    if ((state & ODS_SELECTED) || m_bMenuOpen)
        return m_colors[Pressed];
    return m_colors[m_bOver ? Over : Normal];
}

UINT CRichButton::FaceOf(UINT state) const
{
    UINT face = DFCS_BUTTONPUSH;
    if (state & ODS_DISABLED)
        face |= DFCS_INACTIVE;
    if ((state & ODS_SELECTED) || m_bMenuOpen)
        face |= DFCS_PUSHED;
    if (m_bOver)
        face |= DFCS_HOT;
    if (m_bDefault)
        face |= DFCS_DEFAULT;
    return face;
}

void CRichButton::Draw(const DRAWITEMSTRUCT& item) const
{
    CDC& dc = *item.hDC;
    const Colors& colors = ColorsOf(item.itemState);
    const bool disabled = item.itemState & ODS_DISABLED;
    if (!disabled && colors.background != GetSysColor(COLOR_3DFACE))
        dc.SetBkColor(colors.background);
    dc.DrawFrameControl(item.rcItem, DFC_BUTTON, FaceOf(item.itemState));
    dc.SetTextColor(disabled ? GetSysColor(COLOR_GRAYTEXT) : colors.text);
    const RECT& all = item.rcItem;
    DrawContents(dc, {all.left + kMargin, all.top, all.right - kMargin, all.bottom}, item.itemState);
    if (item.itemState & ODS_FOCUS)
        dc.DrawFocusRect(
            {all.left + kFocusInset, all.top + kFocusInset, all.right - kFocusInset, all.bottom - kFocusInset});
}

void CRichButton::DrawContents(CDC& dc, RECT area, UINT state) const
{
    const UINT box = DFCS_BUTTONCHECK | (m_bTicked ? DFCS_CHECKED : 0) | (FaceOf(state) & ~DFCS_BUTTONPUSH);
    if (m_bCheckBox)
    {
        dc.SetBkColor(CLR_INVALID);
        dc.DrawFrameControl({area.left, area.top, area.left + kBoxWidth, area.bottom}, DFC_BUTTON, box);
        area.left += kBoxWidth;
    }
    if (m_bMenuSet)
    {
        dc.DrawFrameControl({area.right - kArrowWidth, area.top, area.right, area.bottom}, DFC_SCROLL, DFCS_SCROLLDOWN);
        area.right -= kArrowWidth;
    }
    const UINT prefixes = state & ODS_NOACCEL ? DT_HIDEPREFIX : 0;
    const UINT place = m_bCheckBox ? 0 : DT_CENTER;
    dc.DrawText(GetWindowText(), area, place | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | prefixes);
}

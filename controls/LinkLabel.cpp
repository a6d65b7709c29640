#include "controls/LinkLabel.h"

#include "base/FormatText.h"
#include "controls/OpenUrl.h"
#include "resources/ResourceIds.h"

#include "platform/window/Resource.h"
#include "platform/window/WinApp.h"

namespace
{

constexpr DWORD kMostError = 32;
constexpr UINT_PTR kLeaveTimer = 1;
constexpr UINT kLeaveInterval = 100; // milliseconds

// Whether a place on the screen is in the window's client area.
bool IsOver(const CWnd& window, POINT place)
{
    RECT area;
    window.GetClientRect(&area);
    return ScreenToClient(window.m_hWnd, &place) && place.x >= 0 && place.x < area.right && place.y >= 0 &&
           place.y < area.bottom;
}

void ReportFailure(DWORD code)
{
    std::string reason = code <= kMostError ? AfxLoadString(IDS_LINK_ERRORS + code) : std::string();
    if (reason.empty())
        reason = FormatText(IDS_LINK_ERROR_UNKNOWN, "%d", std::to_string(code));
    MessageBeep(MB_ICONEXCLAMATION);
    AfxMessageBox(FormatText(IDS_LINK_FAILED, "%s", reason), MB_ICONEXCLAMATION);
}

} // namespace

CLinkLabel::CLinkLabel()
{
    m_underlinedFont.CreateFontIndirect({.lfUnderline = TRUE});
}

void CLinkLabel::SetUrl(const std::string& url)
{
    m_url = url;
}

void CLinkLabel::SetVisited(bool visited)
{
    m_bVisited = visited;
    Repaint();
}

void CLinkLabel::SetUnderline(Underline mode)
{
    m_underline = mode;
    Repaint();
}

void CLinkLabel::SetColors(COLORREF link, COLORREF visited, COLORREF hover)
{
    m_linkColor = link;
    m_visitedColor = visited;
    m_hoverColor = hover;
    Repaint();
}

void CLinkLabel::SetPointer(HCURSOR cursor)
{
    m_cursor = cursor;
}

const MessageMap& CLinkLabel::GetMessageMap() const
{
    static const MessageMap map{&CStatic::StaticMessageMap(),
                                {
                                    On(WM_MOUSEMOVE, &CLinkLabel::OnMouseMove),
                                    On(WM_SETCURSOR, &CLinkLabel::OnSetCursor),
                                    On(WM_ERASEBKGND, &CLinkLabel::OnEraseBackground),
                                    On(OCM_CTLCOLORSTATIC, &CLinkLabel::OnControlColor),
                                    On(OCM_COMMAND, &CLinkLabel::OnClicked),
                                    ::OnTimer(&CLinkLabel::OnTimer),
                                }};
    return map;
}

LRESULT CLinkLabel::OnMouseMove(WPARAM, LPARAM)
{
    if (!m_bOver)
    {
        m_bOver = true;
        Repaint();
        m_nTimer = SetTimer(kLeaveTimer, kLeaveInterval);
    }
    return Default();
}

void CLinkLabel::OnTimer(UINT_PTR)
{
    if (!IsOver(*this, PointFromLParam(static_cast<LPARAM>(GetMessagePos()))))
    {
        m_bOver = false;
        KillTimer(m_nTimer);
        Repaint();
    }
    Default();
}

LRESULT CLinkLabel::OnSetCursor(WPARAM, LPARAM)
{
    if (m_cursor == HCURSOR::Null)
        return Default();
    ::SetCursor(m_cursor);
    return TRUE;
}

LRESULT CLinkLabel::OnEraseBackground(WPARAM device, LPARAM)
{
    RECT area;
    GetClientRect(&area);
    reinterpret_cast<CDC*>(device)->FillSolidRect(area, GetSysColor(COLOR_3DFACE));
    return TRUE;
}

LRESULT CLinkLabel::OnControlColor(WPARAM device, LPARAM)
{
    auto& dc = *reinterpret_cast<CDC*>(device);
    dc.SetTextColor(TextColor());
    dc.SelectObject(IsUnderlined() ? &m_underlinedFont : &m_normalFont);
    return 0;
}

// The box serves messages: the window may be gone behind it.
void CLinkLabel::OnClicked()
{
    m_bOver = false;
    const DWORD result = OpenUrl(m_url, SW_SHOW);
    SetVisited(result > kMostError);
    if (!m_bVisited)
        ReportFailure(result);
}

COLORREF CLinkLabel::TextColor() const
{
    const auto resolved = [](COLORREF color, int index) { return color == CLR_DEFAULT ? GetSysColor(index) : color; };
    if (m_bOver)
        return resolved(m_hoverColor, COLOR_CAPTIONTEXT);
    return m_bVisited ? resolved(m_visitedColor, COLOR_VISITEDLINK) : resolved(m_linkColor, COLOR_HOTLIGHT);
}

bool CLinkLabel::IsUnderlined() const
{
    return m_underline == kUnderlineAlways || m_bOver;
}

void CLinkLabel::Repaint() const
{
    if (IsWindow(m_hWnd))
        Invalidate();
}

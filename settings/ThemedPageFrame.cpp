#include "settings/ThemedPageFrame.h"

#include "settings/ThemeLibrary.h"

#include "platform/window/PaintDC.h"

namespace
{

constexpr const char* kWindowName = "Page Frame";

// Of the class of tab controls: the body below the tabs.
constexpr const wchar_t* kClass = L"Tab";
constexpr int kBody = 9;
constexpr int kState = 0;

} // namespace

// The theme for as long as a drawing takes; false where nothing is themed.
class CThemedPageFrame::Theme
{
public:
    explicit Theme(const CThemedPageFrame& frame)
        : m_themes(frame.m_themes),
          m_hTheme(m_themes.IsThemeActive() ? m_themes.OpenThemeData(frame.m_hWnd, kClass) : nullptr)
    {}
    ~Theme()
    {
        if (m_hTheme)
            m_themes.CloseThemeData(m_hTheme);
    }
    Theme(const Theme&) = delete;
    Theme& operator=(const Theme&) = delete;

    explicit operator bool() const
    {
        return m_hTheme != nullptr;
    }
    RECT ContentOf(CDC* dc, const RECT& bounds) const
    {
        return m_themes.GetThemeBackgroundContentRect(m_hTheme, dc, kBody, kState, bounds);
    }
    void DrawBackground(CDC& dc, const RECT& bounds) const
    {
        m_themes.DrawThemeBackground(m_hTheme, &dc, kBody, kState, bounds);
    }

private:
    const CThemeLibrary& m_themes;
    const HTHEME m_hTheme;
};

CThemedPageFrame::CThemedPageFrame() : CThemedPageFrame(CThemeLibrary::Get())
{}

CThemedPageFrame::CThemedPageFrame(const CThemeLibrary& themes) : m_themes(themes)
{}

BOOL CThemedPageFrame::Create(const RECT& area, CWnd* parent, UINT id)
{
    return CWnd::Create(kWindowName, area, parent, id);
}

CWnd* CThemedPageFrame::GetFrameWindow()
{
    return this;
}

void CThemedPageFrame::SetCaption(const std::string& text, HICON icon)
{
    m_images.DeleteImageList();
    m_images.Create(kCaptionIconSize);
    CPageFrame::SetCaption(text, m_images.ExtractIcon(m_images.Add(icon)));
}

const MessageMap& CThemedPageFrame::GetMessageMap() const
{
    static const MessageMap map{&CWnd::StaticMessageMap(), {On(WM_PAINT, &CThemedPageFrame::OnPaint)}};
    return map;
}

RECT CThemedPageFrame::CalcMessageArea(CDC* dc)
{
    const Theme theme(*this);
    if (!theme)
        return CPageFrame::CalcMessageArea(dc);
    const RECT client = ClientArea();
    RECT area = theme.ContentOf(dc, client);
    if (m_bShowCaption)
        area.top = client.top + m_nCaptionHeight + 1;
    return area;
}

RECT CThemedPageFrame::CalcCaptionArea(CDC* dc)
{
    const Theme theme(*this);
    if (!theme)
        return CPageFrame::CalcCaptionArea(dc);
    const RECT client = ClientArea();
    RECT area = theme.ContentOf(dc, client);
    area.bottom = client.top + (m_bShowCaption ? m_nCaptionHeight : 0);
    return area;
}

void CThemedPageFrame::OnPaint()
{
    CPaintDC dc(this);
    if (const Theme theme(*this); theme)
        theme.DrawBackground(dc, ClientArea());
    Draw(dc);
}

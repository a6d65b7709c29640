// What surrounds the page of a tree sheet: a caption bar above it, and a message in its place while no page is on show.
#pragma once

#include "platform/window/DeviceContext.h"
#include "platform/window/Wnd.h"

#include <string>

// The color of one line of a caption: the first of `count` is `from`, and each channel goes evenly to that of `to`,
// which would be the line behind the last one.
COLORREF CaptionColor(COLORREF from, COLORREF to, LONG line, LONG count);

// Of the icon in the caption, in device-independent pixels.
inline constexpr int kCaptionIconSize = 16;

// A part of a window, and no window itself. User-interface thread. A value that is set shows at the next paint.
class CPageFrame
{
public:
    virtual ~CPageFrame() = default;

    // A visible child of `parent` with a control number. FALSE if it cannot be made.
    virtual BOOL Create(const RECT& area, CWnd* parent, UINT id) = 0;
    virtual CWnd* GetFrameWindow() = 0;

    virtual void ShowCaption(BOOL show);
    // In device-independent pixels.
    virtual void SetCaptionHeight(int height);
    // The null icon for none.
    virtual void SetCaption(const std::string& text, HICON icon);
    virtual void SetMessageText(const std::string& text);
    // Drawing flags of CDC::DrawText.
    virtual void SetMessageFormat(UINT format);

protected:
    // All of it, on each paint.
    virtual void Draw(CDC& dc);
    // In the frame's client area. `dc` is null while nothing is painted.
    virtual RECT CalcMessageArea(CDC* dc);
    virtual void DrawMessage(CDC& dc, const RECT& area, const std::string& text);
    virtual RECT CalcCaptionArea(CDC* dc);
    virtual void DrawCaption(CDC& dc, const RECT& area, const std::string& text, HICON icon);

    RECT ClientArea();

    BOOL m_bShowCaption = FALSE;
    int m_nCaptionHeight = 0;
    std::string m_caption;
    HICON m_hCaptionIcon;
    std::string m_message;
    UINT m_messageFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX;

private:
    void RedrawCaption();
    void RedrawMessage();
};

// The page frame as a window, in the look of the desktop's theme where there is one.
#pragma once

#include "settings/PageFrame.h"

#include "platform/window/ImageList.h"

class CThemeLibrary;

class CThemedPageFrame : public CWnd, public CPageFrame
{
public:
    CThemedPageFrame();
    // `themes` must outlive the frame.
    explicit CThemedPageFrame(const CThemeLibrary& themes);

    BOOL Create(const RECT& area, CWnd* parent, UINT id) override;
    CWnd* GetFrameWindow() override;
    void SetCaption(const std::string& text, HICON icon) override;

protected:
    const MessageMap& GetMessageMap() const override;

    RECT CalcMessageArea(CDC* dc) override;
    RECT CalcCaptionArea(CDC* dc) override;

private:
    class Theme;

    void OnPaint();

    const CThemeLibrary& m_themes;
    CImageList m_images; // the icon of the caption alone
};

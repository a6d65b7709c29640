// Fonts for drawing; see CDC::SelectObject.
#pragma once

#include "platform/Types.h"

// Of the published fields the one that is used.
struct LOGFONTA
{
    BYTE lfUnderline = FALSE;
};

// The font of the window that is drawn on, changed as asked.
class CFont
{
public:
    // Always TRUE.
    BOOL CreateFontIndirect(const LOGFONTA& font)
    {
        m_font = font;
        return TRUE;
    }
    const LOGFONTA& GetLogFont() const
    {
        return m_font;
    }

private:
    LOGFONTA m_font;
};

// What BCMenu keeps of an entry. To the platform the entry is only a flag and a pointer to this.
#pragma once

#include "platform/window/DeviceContext.h"
#include "platform/window/ImageList.h"

#include "platform/Types.h"

#include <memory>
#include <string>
#include <string_view>

struct BCMenuItem
{
    // The four numbers in the middle, the images and the colour are for the drawing; sizes are device-independent
    // pixels.
    std::unique_ptr<wchar_t[]> m_text; // "&" before the mnemonic, a tab before the shortcut; null for none
    int m_nPicture = -1;               // number in m_images; -1: none
    int m_nTickedPicture = -1;         // the same while the entry is ticked; -1: the tick
    int m_nIndent = 0;                 // the text stands so much further in
    int m_nHeight = -1;                // -1: what text and picture need
    UINT m_nFlags = 0;                 // MF_ bits
    UINT_PTR m_nID = 0;                // the command; of a popup its handle; 0 for a separator
    UINT m_nUsed = 0;                  // 1: a synchronisation has found the entry's place
    std::unique_ptr<CImageList> m_images;
    COLORREF m_color = 0; // of the text; 0: the desktop's

    // In the system's code page.
    void SetText(std::string_view text);
    std::string Text() const;
};

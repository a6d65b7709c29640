// Drawing in answer to WM_PAINT. User-interface thread only, on the stack of the handler.
#pragma once

#include "platform/window/Handle.h"

#include <memory>

class CWnd;

inline constexpr int SM_CXICON = 11;
inline constexpr int SM_CYICON = 12;

// Size of a big icon, in device-independent pixels.
int GetSystemMetrics(int index);

class CPaintDC
{
public:
    explicit CPaintDC(CWnd* window);
    ~CPaintDC();
    CPaintDC(const CPaintDC&) = delete;
    CPaintDC& operator=(const CPaintDC&) = delete;

    // At its big size; left and top in device-independent pixels.
    bool DrawIcon(int x, int y, HICON icon);

private:
    struct Painter;
    std::unique_ptr<Painter> m_painter;
};

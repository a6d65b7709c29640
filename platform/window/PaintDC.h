// Drawing in answer to WM_PAINT. User-interface thread only, on the stack of the handler.
#pragma once

#include "platform/window/DeviceContext.h"

class CWnd;

inline constexpr int SM_CXICON = 11;
inline constexpr int SM_CYICON = 12;

// Size of a big icon, in device-independent pixels.
int GetSystemMetrics(int index);

// Draws nothing for a window that is not being painted.
class CPaintDC : public CDC
{
public:
    explicit CPaintDC(CWnd* window);

private:
    static std::unique_ptr<Surface> SurfaceOf(const CWnd* window);
};

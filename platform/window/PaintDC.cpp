#include "platform/window/PaintDC.h"

#include "platform/window/Creation_p.h"
#include "platform/window/DeviceContext_p.h"

int GetSystemMetrics(int index)
{
    constexpr int kIconSize = 32;
    return index == SM_CXICON || index == SM_CYICON ? kIconSize : 0;
}

CPaintDC::CPaintDC(CWnd* window) : CDC(SurfaceOf(window))
{}

std::unique_ptr<CDC::Surface> CPaintDC::SurfaceOf(const CWnd* window)
{
    const auto record = RecordOf(window);
    if (!record || !record->Peer()->Widget().testAttribute(Qt::WA_WState_InPaintEvent))
        return nullptr;
    return std::make_unique<Surface>(record->Peer()->Widget());
}

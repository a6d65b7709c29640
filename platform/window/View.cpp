#include "platform/window/View.h"

#include "platform/window/Creation_p.h"
#include "platform/window/PaintDC.h"
#include "platform/window/widgets/DrawnWidget_p.h"

BOOL CView::Create(const RECT& area, CWnd* parent, UINT id)
{
    BOOL stands = FALSE;
    RunOnDesktop([&] {
        if (MakeChild<DrawnWidget>(*this, parent, id, area))
            stands = SendCreate(*RecordOf(this));
    });
    return stands;
}

LRESULT CView::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_PAINT)
        return CWnd::DefWindowProc(message, wParam, lParam);
    CPaintDC dc(this);
    OnDraw(dc);
    return 0;
}

void CView::PostNcDestroy()
{
    delete this;
}

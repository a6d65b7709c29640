#include "platform/window/PaintDC.h"

#include "platform/window/Picture_p.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/Wnd.h"

#include <QPainter>
#include <QSvgRenderer>
#include <QWidget>

namespace
{
constexpr int kIconSize = 32;
}

int GetSystemMetrics(int index)
{
    return index == SM_CXICON || index == SM_CYICON ? kIconSize : 0;
}

struct CPaintDC::Painter
{
    QPainter painter;
};

CPaintDC::CPaintDC(CWnd* window) : m_painter(std::make_unique<Painter>())
{
    const auto record = WindowTable::Get().Find(window->GetSafeHwnd());
    if (record && record->Peer()->Widget().paintingActive() == false)
        m_painter->painter.begin(&record->Peer()->Widget());
}

CPaintDC::~CPaintDC() = default;

bool CPaintDC::DrawIcon(int x, int y, HICON icon)
{
    const auto picture = LoadPicture(static_cast<int>(icon.resource));
    if (!picture || !m_painter->painter.isActive())
        return false;
    DrawPicture(m_painter->painter, *picture, QRectF(x, y, kIconSize, kIconSize), false);
    return true;
}

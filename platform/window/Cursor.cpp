#include "platform/window/Cursor.h"

#include "platform/window/Calls.h"
#include "platform/window/Cursor_p.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"

#include <QPointer>
#include <QWidget>

namespace
{

QPointer<QWidget> g_asking;

Qt::CursorShape ShapeOf(HCURSOR cursor)
{
    if (cursor == HCURSOR::Null)
        return Qt::BlankCursor;
    return cursor == IDC_HAND ? Qt::PointingHandCursor : Qt::ArrowCursor;
}

} // namespace

void AskForCursor(WindowRecord& record, QWidget& widget)
{
    g_asking = &widget;
    if (!record.SendFromToolkit(WM_SETCURSOR, 0, 0))
        SetCursor(IDC_ARROW);
    g_asking = nullptr;
}

void SetCursor(HCURSOR cursor)
{
    if (g_asking)
        g_asking->setCursor(ShapeOf(cursor));
}

DWORD GetMessagePos()
{
    POINT place;
    GetCursorPos(&place);
    return static_cast<DWORD>(PairToLParam(place.x, place.y));
}

BOOL _TrackMouseEvent(TRACKMOUSEEVENT* event)
{
    const auto record = WindowTable::Get().Find(event->hwndTrack);
    return record && IsDesktopThread() && event->dwFlags == TME_LEAVE && record->Peer()->TrackLeave();
}

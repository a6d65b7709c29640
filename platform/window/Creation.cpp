#include "platform/window/Creation_p.h"

#include "platform/window/WindowTable_p.h"

std::shared_ptr<WindowRecord> RecordOf(const CWnd* window)
{
    return window ? WindowTable::Get().Find(window->GetSafeHwnd()) : nullptr;
}

QRect ToolkitRect(const RECT& rect)
{
    return {rect.left, rect.top, qMax(0, rect.right - rect.left), qMax(0, rect.bottom - rect.top)};
}

LRESULT SendFirst(WindowRecord& record, UINT message)
{
    try
    {
        return record.Send(message, 0, 0);
    }
    catch (...)
    {
        record.Destroy();
        throw;
    }
}

bool SendCreate(WindowRecord& record)
{
    if (SendFirst(record, WM_CREATE) == -1)
        record.Destroy();
    if (!record.IsGone())
        record.Peer()->TellSize();
    return !record.IsGone();
}

void JoinChild(CWnd& object, WindowPeer& peer, const std::shared_ptr<WindowRecord>& owner, UINT id)
{
    const auto record = WindowRecord::Make(peer, owner, static_cast<int>(id), {});
    record->Attach(object, true);
    peer.Widget().show();
}

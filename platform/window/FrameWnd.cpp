#include "platform/window/FrameWnd.h"

#include "platform/window/Creation_p.h"
#include "platform/window/MessageBox_p.h"
#include "platform/window/widgets/FrameWidget_p.h"

BOOL CFrameWnd::LoadFrame(UINT id, DWORD, CWnd* parent)
{
    BOOL stands = FALSE;
    RunOnDesktop([&] {
        if (m_hWnd)
            return;
        const auto owner = RecordOf(parent);
        const auto handles = [this](UINT command) {
            return GetMessageMap().Find(WM_COMMAND, BN_CLICKED, command) != nullptr;
        };
        auto* peer = new FrameWidget(owner ? owner->Peer()->Widget().window() : nullptr, handles);
        const auto record = WindowRecord::Make(*peer, owner, 0, ApplicationName());
        record->Attach(*this, true);
        record->Show();
        if (peer->LoadMenuBar(id))
            stands = SendCreate(*record);
        else
            record->Destroy();
    });
    return stands;
}

BOOL CFrameWnd::OnCreateClient()
{
    return TRUE;
}

LRESULT CFrameWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return OnCreateClient() ? 0 : -1;
    return CWnd::DefWindowProc(message, wParam, lParam);
}

void CFrameWnd::PostNcDestroy()
{
    delete this;
}

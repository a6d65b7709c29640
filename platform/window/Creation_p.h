// How windows begin that are no controls of a dialog.
#pragma once

#include "platform/window/Desktop_p.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/Wnd.h"

#include <QRect>
#include <QWidget>

// Null without a window that stands.
std::shared_ptr<WindowRecord> RecordOf(const CWnd* window);

QRect ToolkitRect(const RECT& rect);

// The first message of a window; one that an exception leaves is destroyed.
LRESULT SendFirst(WindowRecord& record, UINT message);
// WM_CREATE, then the first WM_SIZE. False if the program does not want the window, which is destroyed then.
bool SendCreate(WindowRecord& record);

// Gives the object the window of a new child of `owner`, and shows it.
void JoinChild(CWnd& object, WindowPeer& peer, const std::shared_ptr<WindowRecord>& owner, UINT id);

// Makes a child window for an object that has none yet. Null if there is no parent for it.
template <class Peer>
Peer* MakeChild(CWnd& object, const CWnd* parent, UINT id, const RECT& area)
{
    Peer* peer = nullptr;
    RunOnDesktop([&] {
        const auto owner = RecordOf(parent);
        if (!owner || object.m_hWnd)
            return;
        peer = new Peer(&owner->Peer()->ClientArea());
        peer->Widget().setGeometry(ToolkitRect(area));
        JoinChild(object, *peer, owner, id);
    });
    return peer;
}

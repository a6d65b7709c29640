// The widget of one kind behind a handle.
#pragma once

#include "platform/window/Desktop_p.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"

// Runs on the user-interface thread with the widget, if the window stands and is of that kind.
template <class Peer, class Action>
void ForPeer(HWND window, Action action)
{
    RunOnDesktop([&] {
        const auto record = WindowTable::Get().Find(window);
        if (auto* peer = record ? dynamic_cast<Peer*>(record->Peer()) : nullptr)
            action(*peer);
    });
}

// The same with an answer, `missing` where there is no such widget.
template <class Peer, class Action>
auto WithPeer(HWND window, decltype(std::declval<Action>()(std::declval<Peer&>())) missing, Action action)
{
    auto answer = missing;
    ForPeer<Peer>(window, [&](Peer& peer) { answer = action(peer); });
    return answer;
}

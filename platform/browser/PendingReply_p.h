// The answer that a call waits for.
#pragma once

#include "platform/com/Unknown.h"

#include <QJsonObject>

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace browsing
{

using Clock = std::chrono::steady_clock;
using Deadline = Clock::time_point;

struct Reply
{
    HRESULT result = E_FAIL;
    QJsonObject value;
};

class PendingReply
{
public:
    // The first one counts. Any thread.
    void Finish(Reply reply);
    bool IsFinished() const;
    // Waits for the reply and takes it: RPC_E_TIMEOUT at the deadline, E_ABORT once the blocking calls of the calling
    // thread are cancelled; the reply may then still come, unseen.
    Reply Take(Deadline deadline);
    // Waits for the reply whether or not the calls of the thread are cancelled, and leaves it there.
    void Wait(Deadline deadline);

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_finished = false;
    Reply m_reply;
};

} // namespace browsing

#include "platform/browser/PendingReply_p.h"

#include "platform/system/Thread.h"

#include <algorithm>
#include <utility>

namespace browsing
{
namespace
{

// How soon a waiting call notices that it was cancelled.
constexpr std::chrono::milliseconds kCancelPoll(50);

} // namespace

void PendingReply::Finish(Reply reply)
{
    const std::lock_guard lock(m_mutex);
    if (m_finished)
        return;
    m_finished = true;
    m_reply = std::move(reply);
    m_changed.notify_all();
}

bool PendingReply::IsFinished() const
{
    const std::lock_guard lock(m_mutex);
    return m_finished;
}

Reply PendingReply::Take(Deadline deadline)
{
    std::unique_lock lock(m_mutex);
    while (!m_finished)
    {
        if (IsSynchronousIoCancelled())
            return {E_ABORT, {}};
        const Clock::time_point now = Clock::now();
        if (now >= deadline)
            return {RPC_E_TIMEOUT, {}};
        m_changed.wait_until(lock, std::min(deadline, now + kCancelPoll));
    }
    return std::exchange(m_reply, {});
}

void PendingReply::Wait(Deadline deadline)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait_until(lock, deadline, [this] { return m_finished; });
}

} // namespace browsing

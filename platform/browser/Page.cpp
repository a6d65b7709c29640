#include "platform/browser/Page_p.h"

namespace browsing
{

bool Page::IsSilent() const
{
    return m_unanswered && !m_unanswered->IsFinished();
}

void Page::Ask(Connection& browser, const Command& command, NextCommand next)
{
    const Clock::time_point now = Clock::now();
    if (!IsSilent())
        m_since = now;
    m_asked = now < m_since + m_silenceLimit ? browser.Send(command, std::move(next)) : nullptr;
}

Reply Page::Answer()
{
    if (!m_asked)
        return {RPC_E_TIMEOUT, {}};
    Reply reply = m_asked->Take(m_since + m_silenceLimit);
    m_unanswered = reply.result == RPC_E_TIMEOUT || reply.result == E_ABORT ? m_asked : nullptr;
    return reply;
}

} // namespace browsing

// What is known of one page between two looks: above all whether it answers.
#pragma once

#include "platform/browser/Connection_p.h"

namespace browsing
{

// A page that sleeps or hangs lets every request wait. Its limit counts from the first request that it left without an
// answer, so only the first look waits for it; the request stays under way, and its answer shows that the page is back.
class Page
{
public:
    explicit Page(std::chrono::seconds silenceLimit = std::chrono::seconds(5)) : m_silenceLimit(silenceLimit)
    {}

    // Sends a request unless the page has been silent for too long. Answer gives what came of it, then or later.
    void Ask(Connection& browser, const Command& command, NextCommand next = nullptr);
    Reply Answer();

private:
    bool IsSilent() const;

    std::chrono::seconds m_silenceLimit;
    std::shared_ptr<PendingReply> m_asked;
    std::shared_ptr<PendingReply> m_unanswered;
    Clock::time_point m_since;
};

} // namespace browsing

// Leaving in good order when the system asks for it.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

// While it lives, SIGTERM and SIGINT call `leave` on the user-interface thread, where it is made. A second one ends the
// process as usual.
class TerminationSignals
{
public:
    explicit TerminationSignals(std::function<void()> leave);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    std::function<void()> m_leave;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

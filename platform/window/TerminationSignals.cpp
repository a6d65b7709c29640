#include "platform/window/TerminationSignals_p.h"

#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

namespace
{

std::atomic<int> g_event = -1;
std::atomic<int> g_first = 0;
std::atomic<int> g_count = 0;
std::atomic<int> g_patience = 0;

void HandleSignal(int signal)
{
    const int error = errno;
    int none = 0;
    g_first.compare_exchange_strong(none, signal);
    if (++g_count <= g_patience)
    {
        eventfd_write(g_event, 1);
    }
    else
    {
        // It takes hold when this handler returns.
        std::signal(signal, SIG_DFL);
        raise(signal);
    }
    errno = error;
}

void SetAction(std::span<const int> numbers, void (*handler)(int))
{
    for (const int signal : numbers)
    {
        struct sigaction action = {};
        sigaction(signal, nullptr, &action);
        if (action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}

} // namespace

TerminationSignals::TerminationSignals(std::span<const int> numbers, int patience, Told told)
    : m_numbers(numbers), m_told(std::move(told))
{
    g_first = 0;
    g_count = 0;
    g_patience = patience;
    g_event = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    m_notifier = std::make_unique<QSocketNotifier>(g_event.load(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { TellNew(); });
    SetAction(m_numbers, HandleSignal);
}

TerminationSignals::~TerminationSignals()
{
    SetAction(m_numbers, SIG_DFL);
    m_notifier.reset();
    close(g_event.exchange(-1));
}

void TerminationSignals::TellNew()
{
    eventfd_t count = 0;
    eventfd_read(g_event, &count);
    for (; count > 0; --count)
        m_told(g_first, ++m_nTold);
}

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

void HandleSignal(int)
{
    const int error = errno;
    eventfd_write(g_event, 1);
    errno = error;
}

void SetAction(void (*handler)(int), int flags)
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> leave) : m_leave(std::move(leave))
{
    g_event = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    m_notifier = std::make_unique<QSocketNotifier>(g_event.load(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        eventfd_t count = 0;
        eventfd_read(g_event, &count);
        m_leave();
    });
    SetAction(HandleSignal, SA_RESTART | static_cast<int>(SA_RESETHAND));
}

TerminationSignals::~TerminationSignals()
{
    SetAction(SIG_DFL, 0);
    m_notifier.reset();
    close(g_event.exchange(-1));
}

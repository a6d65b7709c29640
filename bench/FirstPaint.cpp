// Loaded into a program of the toolkit ahead of its libraries: prints the clock, CLOCK_MONOTONIC in seconds, when the
// program's first window has been painted, and ends the program.

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace
{

void PrintClockAndLeave()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::printf("%lld.%09ld\n", static_cast<long long>(now.tv_sec), now.tv_nsec);
    std::fflush(stdout);
    _exit(0);
}

// The event comes ahead of the painting; the next turn of the event loop is behind it.
class PaintWatch : public QObject
{
public:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        const auto* widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(object) : nullptr;
        if (widget && widget->isWindow())
            QMetaObject::invokeMethod(qApp, PrintClockAndLeave, Qt::QueuedConnection);
        return false;
    }
};

void Watch()
{
    static PaintWatch watch;
    qApp->installEventFilter(&watch);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Watch)

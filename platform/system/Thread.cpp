#include "platform/system/Thread.h"

#include "platform/system/Thread_p.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QThread>

#include <atomic>
#include <sys/eventfd.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{

thread_local const std::atomic<bool>* t_cancelled = nullptr;
std::atomic<bool> g_allCancelled = false;

bool IsUserInterfaceThread()
{
    const QCoreApplication* application = QCoreApplication::instance();
    return application && application->thread() == QThread::currentThread();
}

} // namespace

class CWinThread::Body
{
public:
    Body() : m_left(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    {}
    ~Body()
    {
        if (m_left >= 0)
            close(m_left);
    }
    Body(const Body&) = delete;
    Body& operator=(const Body&) = delete;

    // False if the system gives no thread.
    bool Start(AFX_THREADPROC procedure, void* parameter)
    {
        if (m_left < 0)
            return false;
        try
        {
            m_thread = std::thread([this, procedure, parameter] { Run(procedure, parameter); });
            return true;
        }
        catch (const std::system_error&)
        {
            return false;
        }
    }

    bool IsRunning() const
    {
        return m_running;
    }

    void CancelIo()
    {
        m_cancelled = true;
    }

    void Join()
    {
        if (m_thread.joinable())
            m_thread.join();
    }

    // A turn of an event loop of its own for each batch of messages: it serves also when the application's loop has
    // been told to quit, which a QEventLoop in exec() refuses to do.
    void ServeMessagesUntilLeft()
    {
        QEventLoop loop;
        const QSocketNotifier wakeUp(m_left, QSocketNotifier::Read);
        while (IsRunning())
            loop.processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    void Run(AFX_THREADPROC procedure, void* parameter)
    {
        t_cancelled = &m_cancelled;
        procedure(parameter);
        m_running = false;
        eventfd_write(m_left, 1);
    }

    const int m_left; // readable for good once the procedure has returned
    std::atomic<bool> m_running = true;
    std::atomic<bool> m_cancelled = false;
    std::thread m_thread;
};

CWinThread::CWinThread(std::unique_ptr<Body> body) : m_body(std::move(body))
{}

CWinThread::~CWinThread()
{
    Wait();
}

bool CWinThread::IsRunning() const
{
    return m_body->IsRunning();
}

void CWinThread::Wait()
{
    if (m_body->IsRunning() && IsUserInterfaceThread())
        m_body->ServeMessagesUntilLeft();
    m_body->Join();
}

void CWinThread::CancelSynchronousIo()
{
    m_body->CancelIo();
}

std::unique_ptr<CWinThread> AfxBeginThread(AFX_THREADPROC procedure, void* parameter, int, UINT)
{
    auto body = std::make_unique<CWinThread::Body>();
    if (!body->Start(procedure, parameter))
        return nullptr;
    return std::make_unique<CWinThread>(std::move(body));
}

bool IsSynchronousIoCancelled()
{
    return t_cancelled && (*t_cancelled || g_allCancelled);
}

void CancelSynchronousIoOfAll()
{
    g_allCancelled = true;
}

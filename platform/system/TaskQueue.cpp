#include "platform/system/TaskQueue_p.h"

#include <QSocketNotifier>

#include <atomic>
#include <exception>
#include <sys/eventfd.h>
#include <unistd.h>

namespace
{

constexpr int kLooks = 200;

// One waiting call. It is shared with the queue's task, whose destruction without a run tells the caller to give up.
class PendingCall
{
public:
    void Finish(bool ran, std::exception_ptr error = nullptr)
    {
        const std::lock_guard lock(m_mutex);
        if (m_finished)
            return;
        m_finished = true;
        m_ran = ran;
        m_error = std::move(error);
        m_over.store(true, std::memory_order_release);
        m_changed.notify_all();
    }

    // Most tasks take less time than falling asleep and being woken does, so the caller looks a while first.
    bool Wait()
    {
        for (int look = 0; look < kLooks && !m_over.load(std::memory_order_acquire); ++look)
            std::this_thread::yield();
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_finished; });
        if (m_error)
            std::rethrow_exception(m_error);
        return m_ran;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::atomic<bool> m_over = false;
    bool m_finished = false;
    bool m_ran = false;
    std::exception_ptr m_error;
};

struct Ticket
{
    std::shared_ptr<PendingCall> call;

    explicit Ticket(std::shared_ptr<PendingCall> pending) : call(std::move(pending))
    {}
    ~Ticket()
    {
        call->Finish(false);
    }
};

} // namespace

TaskQueue::TaskQueue() : m_event(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    m_notifier = std::make_unique<QSocketNotifier>(m_event, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { RunPending(); });
}

TaskQueue::~TaskQueue()
{
    Close();
    m_notifier.reset();
    close(m_event);
}

bool TaskQueue::IsServingThread() const
{
    return std::this_thread::get_id() == m_thread;
}

bool TaskQueue::Post(Task task)
{
    const std::lock_guard lock(m_mutex);
    if (m_closed)
        return false;
    m_tasks.push_back(std::move(task));
    Wake();
    return true;
}

bool TaskQueue::Call(const Task& task)
{
    if (IsServingThread())
    {
        task();
        return true;
    }
    const auto call = std::make_shared<PendingCall>();
    // The caller waits, so its task may be taken by reference. The ticket goes with the queued task alone: a copy kept
    // here would keep a dropped call waiting.
    Task run = [&task, ticket = std::make_shared<Ticket>(call)] {
        try
        {
            task();
            ticket->call->Finish(true);
        }
        catch (...)
        {
            ticket->call->Finish(true, std::current_exception());
        }
    };
    return Post(std::move(run)) && call->Wait();
}

void TaskQueue::Close()
{
    std::deque<Task> dropped;
    const std::lock_guard lock(m_mutex);
    m_closed = true;
    dropped.swap(m_tasks);
}

void TaskQueue::Wake()
{
    eventfd_write(m_event, 1);
}

void TaskQueue::RunPending()
{
    eventfd_t count = 0;
    eventfd_read(m_event, &count);
    // One task a wake-up: paints and input get their turn, and a task that serves messages itself leaves the rest to
    // the loop it runs.
    Task task;
    {
        const std::lock_guard lock(m_mutex);
        if (m_tasks.empty())
            return;
        task = std::move(m_tasks.front());
        m_tasks.pop_front();
        if (!m_tasks.empty())
            Wake();
    }
    task();
}

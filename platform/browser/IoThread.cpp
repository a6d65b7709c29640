#include "platform/browser/IoThread_p.h"

#include "platform/system/TaskQueue_p.h"

#include <QEventLoop>

#include <future>
#include <mutex>
#include <utility>

namespace browsing
{

// What lives on the thread.
struct IoThread::Loop
{
    QEventLoop events;
    TaskQueue queue;
};

IoThread::IoThread()
{
    std::promise<void> ready;
    m_thread = std::thread([this, &ready] { Run([&ready] { ready.set_value(); }); });
    ready.get_future().wait();
}

IoThread::~IoThread()
{
    Stop();
}

void IoThread::Run(const std::function<void()>& ready)
{
    Loop loop;
    Enter(&loop);
    ready();
    loop.events.exec();
    loop.queue.Close();
    Enter(nullptr);
}

void IoThread::Enter(Loop* loop)
{
    const std::lock_guard lock(m_mutex);
    m_loop = loop;
}

bool IoThread::Post(std::function<void()> task)
{
    const std::shared_lock lock(m_mutex);
    return m_loop != nullptr && m_loop->queue.Post(std::move(task));
}

bool IoThread::Call(const std::function<void()>& task)
{
    const std::shared_lock lock(m_mutex);
    return m_loop != nullptr && m_loop->queue.Call(task);
}

void IoThread::Stop()
{
    Post([this] { m_loop->events.quit(); });
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace browsing

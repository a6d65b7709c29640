// Work handed to a thread that runs an event loop: the user-interface thread, or the browser connection's.
//
// The hand-over goes through a mutex and an event descriptor of our own and not through the toolkit's event queue, so
// that it costs one wake-up and the thread sanitizer can follow it.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

class QSocketNotifier;

class TaskQueue
{
public:
    using Task = std::function<void()>;

    // Serves the thread that makes it; tasks run whenever that thread's event loop runs, nested loops too.
    TaskQueue();
    // Closes. On the serving thread only.
    ~TaskQueue();
    TaskQueue(const TaskQueue&) = delete;
    TaskQueue& operator=(const TaskQueue&) = delete;

    bool IsServingThread() const;

    // Runs the task later; false (the task is dropped) once the queue is closed. Any thread.
    bool Post(Task task);
    // Runs the task on the serving thread and waits for its end; directly when called there. What the task throws is
    // thrown here. False if the queue was closed before the task ran. Any thread.
    bool Call(const Task& task);
    // Drops what waits and fails every waiting call. On the serving thread only.
    void Close();

private:
    void Wake();
    void RunPending();

    const std::thread::id m_thread = std::this_thread::get_id();
    int m_event = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::mutex m_mutex;
    std::deque<Task> m_tasks;
    bool m_closed = false;
};

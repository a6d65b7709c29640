// The thread on which the connections to the browsers live. It runs an event loop and nothing of the program's.
#pragma once

#include <functional>
#include <shared_mutex>
#include <thread>

namespace browsing
{

class IoThread
{
public:
    // Throws std::system_error if the system gives no thread.
    IoThread();
    ~IoThread();
    IoThread(const IoThread&) = delete;
    IoThread& operator=(const IoThread&) = delete;

    // As those of TaskQueue; false once the thread was stopped.
    bool Post(std::function<void()> task);
    bool Call(const std::function<void()>& task);
    // Waits for the thread's end; calls that wait are failed. Not on the thread itself.
    void Stop();

private:
    struct Loop;

    void Run(const std::function<void()>& ready);
    void Enter(Loop* loop);

    std::shared_mutex m_mutex; // shared by whoever uses the loop, so that it outlives the use
    Loop* m_loop = nullptr;
    std::thread m_thread;
};

} // namespace browsing

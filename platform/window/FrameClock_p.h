// Brings windows up to date with what workers told them, all together and at most once a frame, so that a worker that
// changes texts and positions tens of thousands of times a second costs the user-interface thread one paint a frame.
#pragma once

#include <chrono>
#include <memory>
#include <mutex>
#include <vector>

class QTimer;
class TaskQueue;
class WindowRecord;

class FrameClock
{
public:
    explicit FrameClock(TaskQueue& tasks);
    ~FrameClock();

    // WindowRecord::Show is called for the record within a frame. Any thread; does not wait.
    void Request(std::weak_ptr<WindowRecord> record);
    // No frame comes any more. User-interface thread.
    void Stop();

private:
    using Clock = std::chrono::steady_clock;

    void Schedule();
    void Run();

    TaskQueue& m_tasks;
    std::unique_ptr<QTimer> m_timer;
    Clock::time_point m_lastFrame;
    std::mutex m_mutex;
    std::vector<std::weak_ptr<WindowRecord>> m_waiting;
};

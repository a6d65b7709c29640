#include "platform/window/FrameClock_p.h"

#include "platform/system/TaskQueue_p.h"
#include "platform/window/WindowRecord_p.h"

#include <QTimer>

namespace
{
constexpr std::chrono::milliseconds kFrame(33);
}

FrameClock::FrameClock(TaskQueue& tasks) : m_tasks(tasks), m_timer(std::make_unique<QTimer>())
{
    m_timer->setSingleShot(true);
    m_timer->setTimerType(Qt::PreciseTimer);
    m_timer->callOnTimeout([this] { Run(); });
}

FrameClock::~FrameClock() = default;

void FrameClock::Request(std::weak_ptr<WindowRecord> record)
{
    const std::lock_guard lock(m_mutex);
    m_waiting.push_back(std::move(record));
    if (m_waiting.size() == 1)
        m_tasks.Post([this] { Schedule(); });
}

void FrameClock::Stop()
{
    m_timer.reset();
}

void FrameClock::Schedule()
{
    const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_lastFrame);
    if (since >= kFrame)
        Run();
    else if (m_timer)
        m_timer->start(kFrame - since);
}

void FrameClock::Run()
{
    m_lastFrame = Clock::now();
    std::vector<std::weak_ptr<WindowRecord>> records;
    {
        const std::lock_guard lock(m_mutex);
        records.swap(m_waiting);
    }
    for (const auto& waiting : records)
    {
        if (const auto record = waiting.lock())
            record->Show();
    }
}

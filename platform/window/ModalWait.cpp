#include "platform/window/ModalWait_p.h"

#include "platform/window/Desktop_p.h"

#include <QEventLoop>

void ModalWait::End(int result)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_ended)
            return;
        m_ended = true;
        m_result = result;
        m_changed.notify_all();
    }
    if (m_loop)
        m_loop->quit();
}

void ModalWait::SetGone()
{
    End(-1);
    const std::lock_guard lock(m_mutex);
    m_gone = true;
    m_changed.notify_all();
}

int ModalWait::WaitForEnd()
{
    if (IsDesktopThread())
        ServeMessages();
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_ended; });
    return m_result;
}

void ModalWait::WaitUntilGone()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_gone; });
}

bool ModalWait::HasEnded() const
{
    const std::lock_guard lock(m_mutex);
    return m_ended;
}

void ModalWait::ServeMessages()
{
    if (HasEnded())
        return;
    QEventLoop loop;
    m_loop = &loop;
    loop.exec(QEventLoop::DialogExec);
    m_loop = nullptr;
}

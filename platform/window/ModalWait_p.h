// The wait for a modal window. On the user-interface thread it serves messages; a worker blocks, and it alone.
#pragma once

#include <condition_variable>
#include <mutex>

class QEventLoop;

class ModalWait
{
public:
    // The first call counts.
    void End(int result);
    // What was waited for is over and nothing of the window runs any more; ends with -1 if there was no End.
    void SetGone();

    // Gives the result.
    int WaitForEnd();
    // For a worker: after this nothing on the user-interface thread uses the window's object.
    void WaitUntilGone();
    bool HasEnded() const;

private:
    void ServeMessages();

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_ended = false;
    bool m_gone = false;
    int m_result = -1;
    QEventLoop* m_loop = nullptr; // user-interface thread only
};

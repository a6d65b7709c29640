// Worker threads.
#pragma once

#include "platform/Types.h"

#include <memory>

using AFX_THREADPROC = UINT (*)(void*);

inline constexpr int THREAD_PRIORITY_NORMAL = 0;

// A worker thread. The object owns the thread: it is joined at the latest by the destructor, which serves messages
// meanwhile when it runs on the user-interface thread.
class CWinThread
{
public:
    class Body;

    explicit CWinThread(std::unique_ptr<Body> body);
    ~CWinThread();
    CWinThread(const CWinThread&) = delete;
    CWinThread& operator=(const CWinThread&) = delete;

    // True from the start until the thread's procedure has returned. Any thread may ask.
    bool IsRunning() const;

    // Waits until the thread's procedure has returned, and joins it. On the user-interface thread messages are served
    // while it waits, so the worker can still reach its windows.
    void Wait();

    // Breaks the blocking calls of this thread into the browser and the internet client, the present one and all later
    // ones: they fail at once, with ERROR_OPERATION_ABORTED or an aborted-call result. For leaving the program.
    void CancelSynchronousIo();

private:
    std::unique_ptr<Body> m_body;
};

// Starts `procedure(parameter)` on a thread of its own. Null if the system gives no thread. The priority is normal and
// the stack size the system's whatever is asked for: these are the only values that the program uses.
std::unique_ptr<CWinThread> AfxBeginThread(AFX_THREADPROC procedure, void* parameter,
                                           int priority = THREAD_PRIORITY_NORMAL, UINT stackSize = 0);

// For blocking calls of the layer: true once CancelSynchronousIo was called for the calling thread. Always false on a
// thread that AfxBeginThread did not start.
bool IsSynchronousIoCancelled();

// The running desktop: the toolkit's application object, and the way of a call to the user-interface thread.
#pragma once

#include <functional>
#include <memory>

class FrameClock;
class QApplication;
class TaskQueue;

// Made on the thread that becomes the user-interface thread, once at a time. Its end fails the calls of workers that
// still wait, destroys all windows and removes the toolkit; later calls find no window and answer so.
class Desktop
{
public:
    Desktop(int& argc, char** argv);
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    // Null while there is none. User-interface thread only.
    static Desktop* Current();

private:
    std::unique_ptr<QApplication> m_application;
};

// False on every thread while there is no desktop.
bool IsDesktopThread();

// Runs the task on the user-interface thread and waits for it; directly when called there. False if there is no desktop
// any more and the task did not run.
bool RunOnDesktop(const std::function<void()>& task);

// Runs the task later on the user-interface thread. False if it never will.
bool PostToDesktop(std::function<void()> task);

// On the user-interface thread: whether a worker's call or posted message is being carried out. Pixels then follow at
// the next frame.
bool IsCarriedCall();

// Null while there is no desktop. Any thread.
FrameClock* GetFrameClock();

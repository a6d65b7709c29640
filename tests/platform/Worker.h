// A worker thread of the layer that runs a function.
#pragma once

#include "platform/system/Thread.h"

#include <functional>
#include <memory>

class Worker
{
public:
    explicit Worker(std::function<void()> body) : m_body(std::move(body)), m_thread(AfxBeginThread(&Run, this))
    {}

    CWinThread* operator->() const
    {
        return m_thread.get();
    }

private:
    static UINT Run(void* worker)
    {
        static_cast<Worker*>(worker)->m_body();
        return 0;
    }

    std::function<void()> m_body;
    std::unique_ptr<CWinThread> m_thread;
};

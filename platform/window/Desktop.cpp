#include "platform/window/Desktop_p.h"

#include "platform/system/TaskQueue_p.h"
#include "platform/window/FrameClock_p.h"
#include "platform/window/MessageBox_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/Resource.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"

#include <QAccessible>
#include <QApplication>

#include <atomic>
#include <vector>

namespace
{

struct Core
{
    TaskQueue tasks;
    FrameClock clock{tasks};
};

Desktop* g_desktop = nullptr;
int g_carriedCalls = 0;
std::atomic<Core*> g_core = nullptr;

// A worker may be inside a queue whose desktop ends, so cores are closed and kept, never freed.
Core* NewCore()
{
    static auto& cores = *new std::vector<std::unique_ptr<Core>>;
    cores.push_back(std::make_unique<Core>());
    return cores.back().get();
}

struct CarriedCall
{
    CarriedCall()
    {
        ++g_carriedCalls;
    }
    ~CarriedCall()
    {
        --g_carriedCalls;
    }
    CarriedCall(const CarriedCall&) = delete;
    CarriedCall& operator=(const CarriedCall&) = delete;
};

void NameApplication()
{
    const ResourceTable* resources = AfxGetResources();
    if (!resources)
        return;
    QApplication::setApplicationName(Utf8Text(resources->applicationName));
    QApplication::setDesktopFileName(Utf8Text(resources->desktopFile));
}

} // namespace

Desktop::Desktop(int& argc, char** argv) : m_application(std::make_unique<QApplication>(argc, argv))
{
    NameApplication();
    QApplication::setQuitOnLastWindowClosed(false);
    // QApplication::exec would do this; modal loops run without it.
    QAccessible::setRootObject(m_application.get());
    g_core = NewCore();
    g_desktop = this;
}

Desktop::~Desktop()
{
    Core& core = *g_core;
    core.tasks.Close();
    core.clock.Stop();
    DismissMessageBoxes();
    for (const auto& record : WindowTable::Get().All())
        record->Destroy();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    g_desktop = nullptr;
    m_application.reset();
    g_core = nullptr;
}

Desktop* Desktop::Current()
{
    return g_desktop;
}

bool IsDesktopThread()
{
    const Core* core = g_core;
    return core && core->tasks.IsServingThread();
}

bool RunOnDesktop(const std::function<void()>& task)
{
    Core* core = g_core;
    if (!core)
        return false;
    if (!core->tasks.IsServingThread())
    {
        return core->tasks.Call([&task] {
            const CarriedCall carried;
            task();
        });
    }
    if (!g_desktop)
        return false;
    task();
    return true;
}

bool PostToDesktop(std::function<void()> task)
{
    Core* core = g_core;
    if (!core || core->tasks.IsServingThread())
        return core && core->tasks.Post(std::move(task));
    return core->tasks.Post([task = std::move(task)] {
        const CarriedCall carried;
        task();
    });
}

bool IsCarriedCall()
{
    return g_carriedCalls > 0;
}

FrameClock* GetFrameClock()
{
    Core* core = g_core;
    return core ? &core->clock : nullptr;
}

#include "platform/testing/Robot_p.h"
#include "platform/window/Desktop_p.h"

#include <cstdlib>

namespace
{

struct TestDesktop
{
    Desktop desktop;
    TaskQueue queue;

    TestDesktop(int& argc, char** argv) : desktop(argc, argv)
    {}
};

std::unique_ptr<TestDesktop> g_testDesktop;

} // namespace

TaskQueue& RobotStage::Queue()
{
    return g_testDesktop->queue;
}

void StartTestDesktop(int& argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    g_testDesktop = std::make_unique<TestDesktop>(argc, argv);
}

void StopTestDesktop()
{
    g_testDesktop.reset();
}

#include "platform/testing/Robot_p.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace RobotStage
{

void Pause()
{
    constexpr int kPollMilliseconds = 5;
    if (Queue().IsServingThread())
        QCoreApplication::processEvents(QEventLoop::AllEvents, kPollMilliseconds);
    std::this_thread::sleep_for(std::chrono::milliseconds(kPollMilliseconds));
}

std::shared_ptr<Delivery> StartDelivery(std::vector<std::function<void()>> steps)
{
    auto delivery = std::make_shared<Delivery>();
    delivery->steps = steps.size();
    for (auto& step : steps)
    {
        const auto run = [delivery, step = std::move(step)] {
            ++delivery->begun;
            step();
        };
        QMetaObject::invokeMethod(qApp, run, Qt::QueuedConnection);
    }
    return delivery;
}

void Deliver(Robot::Milliseconds deadline, const std::function<std::shared_ptr<Delivery>()>& aim)
{
    const auto delivery = Await<std::shared_ptr<Delivery>>(deadline, aim);
    const auto hasBegun = [&delivery] {
        if (delivery->begun < delivery->steps)
            throw RobotError("The event loop does not take input.");
        return true;
    };
    Await<bool>(deadline, hasBegun);
}

} // namespace RobotStage

namespace
{

using RobotStage::Pause;
using RobotStage::Queue;

// Closes whatever is in front, as often as the program asks back, until `ended`. Nothing else can end a modal loop, so
// a program that cannot be closed would hang the test program for good: it is stopped instead.
void CloseEverything(const std::atomic<bool>& ended)
{
    constexpr auto kPatience = std::chrono::seconds(60);
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!ended)
    {
        Queue().Call([] {
            QWidget* front = QApplication::activePopupWidget();
            const auto windows = RobotEyes::ShownWindows();
            if (!front && !windows.empty())
                front = windows.back();
            if (front)
                RobotStage::StartDelivery({[window = QPointer<QWidget>(front)] {
                    if (window)
                        window->close();
                }});
        });
        if (std::chrono::steady_clock::now() >= end)
        {
            std::fputs("The windows of a failed test do not close.\n", stderr);
            std::abort();
        }
        Pause();
    }
}

std::exception_ptr Perform(const std::function<void(Robot&)>& script)
{
    try
    {
        Robot robot;
        script(robot);
        return nullptr;
    }
    catch (...)
    {
        return std::current_exception();
    }
}

std::string OnShow()
{
    std::string text;
    Queue().Call([&text] { text = RobotEyes::Describe(); });
    return text;
}

} // namespace

void RunScript(const std::function<void()>& userInterface, const std::function<void(Robot&)>& script)
{
    std::atomic<bool> ended = false; // the user interface's part
    std::atomic<bool> left = false;  // the script's thread
    std::exception_ptr failure;
    std::thread actor([&] {
        failure = Perform(script);
        constexpr auto kPatience = std::chrono::seconds(10);
        const auto end = std::chrono::steady_clock::now() + kPatience;
        while (!failure && !ended && std::chrono::steady_clock::now() < end)
            Pause();
        if (!failure && !ended)
            failure = std::make_exception_ptr(RobotError("The script left windows open: " + OnShow()));
        if (!ended)
            CloseEverything(ended);
        left = true;
    });
    std::exception_ptr thrown;
    try
    {
        userInterface();
    }
    catch (...)
    {
        thrown = std::current_exception();
    }
    ended = true;
    while (!left)
        Pause();
    actor.join();
    if (failure || thrown)
        std::rethrow_exception(failure ? failure : thrown);
}

bool ServeMessagesUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition())
    {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        Pause();
    }
    return true;
}

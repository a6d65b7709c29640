// The robot's way onto the user-interface thread, and what it sees and does there.
#pragma once

#include "platform/system/TaskQueue_p.h"
#include "platform/testing/Robot.h"

#include <QString>
#include <Qt>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

class QAbstractItemView;
class QAction;
class QMenu;
class QModelIndex;
class QPoint;
class QTreeView;
class QWidget;
class QWindow;

namespace RobotStage
{

// Carries work to the user-interface thread; made by StartTestDesktop.
TaskQueue& Queue();
// Lets time pass: on the user-interface thread by serving messages.
void Pause();

// Input that is on its way. Touched on the user-interface thread only.
struct Delivery
{
    std::size_t begun = 0;
    std::size_t steps = 0;
};

// Queues input events, each as a step of its own behind what the event loop has to do. A step may open a modal loop and
// stay in it: the next step and the robot's next operation then run inside that loop, as they do for a user.
std::shared_ptr<Delivery> StartDelivery(std::vector<std::function<void()>> steps);

// Asks on the user-interface thread, again and again, until `look` gives a value instead of throwing a RobotError.
// After the deadline the last error is thrown on the calling thread, with what is on show. No exception crosses from
// one thread to the other: its text does.
template <class Result>
Result Await(Robot::Milliseconds deadline, const std::function<Result()>& look)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    for (;;)
    {
        std::optional<Result> result;
        std::string error = "the desktop has gone";
        Queue().Call([&] {
            try
            {
                result.emplace(look());
            }
            catch (const RobotError& notYet)
            {
                error = notYet.what();
            }
        });
        if (result)
            return std::move(*result);
        if (std::chrono::steady_clock::now() >= end)
            throw RobotError(error);
        Pause();
    }
}

// Finds the target and queues input for it, then waits until the last step has begun.
void Deliver(Robot::Milliseconds deadline, const std::function<std::shared_ptr<Delivery>()>& aim);

} // namespace RobotStage

// All of these run on the user-interface thread and throw RobotError for what is not on show.
namespace RobotEyes
{

std::vector<QWidget*> ShownWindows(); // the one in front last
QWidget* WindowNamed(const std::string& title);
// Whether a modal window keeps input away from this one.
bool IsBlocked(const QWidget* window);
// What a user reads on a control: its caption without the mnemonic's mark, or its accessible name.
QString NameOf(const QWidget* control);
QString PlainCaption(QString text); // without mnemonic marks and shortcut
QString TextOf(const QWidget* control);
QWidget* ControlNamed(const std::string& name, const std::string& window);
QAbstractItemView* ListOf(const std::string& window);
QTreeView* TreeOf(const std::string& window);
QModelIndex CellOf(const QAbstractItemView* list, int row, int column);
QMenu* PopupMenu();
// The menu's entry with a text, wherever its mark stands.
QAction* MenuEntryNamed(const std::string& text);
// Throws if the user could not use the widget now.
void RequireReady(const QWidget* widget);
std::string Describe(); // all that is on show

} // namespace RobotEyes

namespace RobotHands
{

// A press and a release of a mouse button at a point of `target`, which must be in front of everything else there.
std::shared_ptr<RobotStage::Delivery> Click(QWidget* target, const QPoint& point, Qt::MouseButton button,
                                            Qt::KeyboardModifiers keys = {});
std::shared_ptr<RobotStage::Delivery> Move(QWidget* target, const QPoint& point);
std::shared_ptr<RobotStage::Delivery> DoubleClick(QWidget* target, const QPoint& point);
// With the left button, `by` so many pixels.
std::shared_ptr<RobotStage::Delivery> Drag(QWidget* target, const QPoint& point, const QPoint& by);
// The window's close box.
std::shared_ptr<RobotStage::Delivery> Close(QWidget* window);
// A key with its modifiers, as QKeySequence writes it, to the window in front.
std::shared_ptr<RobotStage::Delivery> Key(const std::string& keys);
// The key that types the ASCII character.
std::shared_ptr<RobotStage::Delivery> TypeCharacter(char character);

} // namespace RobotHands

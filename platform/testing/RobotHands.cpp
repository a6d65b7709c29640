#include "platform/testing/Robot_p.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QKeySequence>
#include <QMenu>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <qtestkeyboard.h>
#include <qtestmouse.h>

namespace
{

using Target = QPointer<QWindow>;

// A window that has gone in the meantime takes no input, which is what would happen to a user.
std::function<void()> Step(QWindow* window, std::function<void(QWindow*)> input)
{
    return [target = Target(window), input = std::move(input)] {
        if (target && target->isVisible())
            input(target);
    };
}

// A desktop gives the front window the focus back when another one goes; off-screen nobody does.
QWindow* ActivatedFrontWindow()
{
    if (const QWidget* popup = QApplication::activePopupWidget())
        return popup->windowHandle();
    QWidget* window = RobotEyes::WindowNamed({});
    if (!window->isActiveWindow())
    {
        window->activateWindow();
        throw RobotError("The window in front takes no keys. On show: " + RobotEyes::Describe());
    }
    return window->windowHandle();
}

// The platform makes this event of the key, and the off-screen one leaves it out.
void AskForContextMenu(QWindow* window)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), window->mapToGlobal(QPoint()));
    QCoreApplication::sendEvent(window, &event);
}

QKeyCombination Parse(const std::string& keys)
{
    const QKeySequence sequence(QString::fromStdString(keys));
    if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown)
        throw RobotError("No such key: " + keys);
    const QKeyCombination key = sequence[0];
    const bool backwards = key.key() == Qt::Key_Tab && key.keyboardModifiers() == Qt::ShiftModifier;
    return backwards ? QKeyCombination(Qt::ShiftModifier, Qt::Key_Backtab) : key;
}

} // namespace

namespace RobotHands
{

std::shared_ptr<RobotStage::Delivery> Click(QWidget* target, const QPoint& point, Qt::MouseButton button)
{
    QWidget* window = target->window();
    const QPoint place = target->mapTo(window, point);
    const QWidget* hit = window->childAt(place);
    if (hit && hit != target && !target->isAncestorOf(hit))
        throw RobotError("\"" + RobotEyes::NameOf(target).toStdString() + "\" is covered by \"" +
                         RobotEyes::NameOf(hit).toStdString() + "\".");
    if (!window->rect().contains(place) || (!hit && target != window))
        throw RobotError("\"" + RobotEyes::NameOf(target).toStdString() + "\" lies outside its window.");
    if (!window->isActiveWindow() && window->windowType() != Qt::Popup)
        window->activateWindow();
    QCursor::setPos(window->mapToGlobal(place));
    QWindow* handle = window->windowHandle();
    return RobotStage::StartDelivery({
        Step(handle, [place](QWindow* live) { QTest::mouseMove(live, place); }),
        Step(handle, [place, button](QWindow* live) { QTest::mousePress(live, button, {}, place); }),
        Step(handle, [place, button](QWindow* live) { QTest::mouseRelease(live, button, {}, place); }),
    });
}

std::shared_ptr<RobotStage::Delivery> Close(QWidget* window)
{
    return RobotStage::StartDelivery({Step(window->windowHandle(), [](QWindow* live) { live->close(); })});
}

std::shared_ptr<RobotStage::Delivery> Key(const std::string& keys)
{
    const QKeyCombination key = Parse(keys);
    QWindow* window = ActivatedFrontWindow();
    std::vector<std::function<void()>> steps = {
        Step(window, [key](QWindow* live) { QTest::keyPress(live, key.key(), key.keyboardModifiers()); }),
        Step(window, [key](QWindow* live) { QTest::keyRelease(live, key.key(), key.keyboardModifiers()); }),
    };
    if (key.key() == Qt::Key_Menu)
        steps.insert(steps.begin() + 1, Step(window, &AskForContextMenu));
    return RobotStage::StartDelivery(std::move(steps));
}

} // namespace RobotHands

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

struct MouseInput
{
    QEvent::Type type;
    Qt::MouseButton button = Qt::NoButton; // that changes
    Qt::MouseButton held = Qt::NoButton;   // from then on
    bool again = false;                    // soon after the last press
    Qt::KeyboardModifiers keys = {};       // that are held
};

// Input goes in where the platform hands it to the toolkit, and is handled before the call returns: should a message
// loop run before that, then it is one of the program's.
std::function<void()> MouseStep(QWindow* window, QPoint place, MouseInput input)
{
    return Step(window, [=](QWindow* live) {
        // The time between two clicks is that of a double click only where one is meant.
        constexpr int kBetweenClicks = 1000;
        static int now = 0;
        now += input.type == QEvent::MouseButtonPress && !input.again ? kBetweenClicks : 1;
        qt_handleMouseEvent(live, place, live->mapToGlobal(place), input.held, input.button, input.type, input.keys,
                            now);
    });
}

std::function<void()> MoveStep(QWindow* window, QPoint place, Qt::MouseButton held = Qt::NoButton)
{
    return MouseStep(window, place, {QEvent::MouseMove, Qt::NoButton, held});
}

std::function<void()> PressStep(QWindow* window, QPoint place, Qt::MouseButton button, bool again = false,
                                Qt::KeyboardModifiers keys = {})
{
    return MouseStep(window, place, {QEvent::MouseButtonPress, button, button, again, keys});
}

std::function<void()> ReleaseStep(QWindow* window, QPoint place, Qt::MouseButton button,
                                  Qt::KeyboardModifiers keys = {})
{
    return MouseStep(window, place, {QEvent::MouseButtonRelease, button, Qt::NoButton, false, keys});
}

// The point in the window, which is made the active one. It must be the target that is in front there.
QPoint TakeAim(QWidget* target, const QPoint& point)
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
    return place;
}

// What the key types, if it types anything.
QString TypedText(QKeyCombination key)
{
    if (key.key() > Qt::Key_AsciiTilde || key.keyboardModifiers() & ~Qt::ShiftModifier)
        return {};
    const QString text = QChar(static_cast<char16_t>(key.key()));
    return key.keyboardModifiers() ? text : text.toLower();
}

std::function<void()> KeyStep(QWindow* window, QKeyCombination key, QEvent::Type type)
{
    return Step(window, [=](QWindow* live) {
        qt_handleKeyEvent(live, type, key.key(), key.keyboardModifiers(), TypedText(key));
    });
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

std::shared_ptr<RobotStage::Delivery> Click(QWidget* target, const QPoint& point, Qt::MouseButton button,
                                            Qt::KeyboardModifiers keys)
{
    const QPoint place = TakeAim(target, point);
    QWindow* window = target->window()->windowHandle();
    return RobotStage::StartDelivery({
        MoveStep(window, place),
        PressStep(window, place, button, false, keys),
        ReleaseStep(window, place, button, keys),
    });
}

std::shared_ptr<RobotStage::Delivery> Move(QWidget* target, const QPoint& point)
{
    const QPoint place = TakeAim(target, point);
    return RobotStage::StartDelivery({MoveStep(target->window()->windowHandle(), place)});
}

std::shared_ptr<RobotStage::Delivery> DoubleClick(QWidget* target, const QPoint& point)
{
    const QPoint place = TakeAim(target, point);
    QWindow* window = target->window()->windowHandle();
    return RobotStage::StartDelivery({
        MoveStep(window, place),
        PressStep(window, place, Qt::LeftButton),
        ReleaseStep(window, place, Qt::LeftButton),
        PressStep(window, place, Qt::LeftButton, true),
        ReleaseStep(window, place, Qt::LeftButton),
    });
}

std::shared_ptr<RobotStage::Delivery> Drag(QWidget* target, const QPoint& point, const QPoint& by)
{
    const QPoint from = TakeAim(target, point);
    QWindow* window = target->window()->windowHandle();
    return RobotStage::StartDelivery({
        MoveStep(window, from),
        PressStep(window, from, Qt::LeftButton),
        MoveStep(window, from + by / 2, Qt::LeftButton),
        MoveStep(window, from + by, Qt::LeftButton),
        ReleaseStep(window, from + by, Qt::LeftButton),
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
        KeyStep(window, key, QEvent::KeyPress),
        KeyStep(window, key, QEvent::KeyRelease),
    };
    if (key.key() == Qt::Key_Menu)
        steps.insert(steps.begin() + 1, Step(window, &AskForContextMenu));
    return RobotStage::StartDelivery(std::move(steps));
}

std::shared_ptr<RobotStage::Delivery> TypeCharacter(char character)
{
    QWindow* window = ActivatedFrontWindow();
    const auto step = [=](QEvent::Type type) {
        return Step(window, [=](QWindow* live) {
            const QString text = QString(QLatin1Char(character));
            qt_handleKeyEvent(live, type, text.at(0).toUpper().unicode(), {}, text);
        });
    };
    return RobotStage::StartDelivery({step(QEvent::KeyPress), step(QEvent::KeyRelease)});
}

} // namespace RobotHands

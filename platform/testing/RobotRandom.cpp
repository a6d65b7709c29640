#include "platform/testing/Robot_p.h"

#include <QAbstractButton>
#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace
{

using Dice = std::minstd_rand;
using DeliveryPtr = std::shared_ptr<RobotStage::Delivery>;

int Below(int count, Dice& dice)
{
    return static_cast<int>(dice() % static_cast<unsigned>(std::max(count, 1)));
}

template <class Item>
Item& OneOf(std::vector<Item>& items, Dice& dice)
{
    return items[static_cast<std::size_t>(Below(static_cast<int>(items.size()), dice))];
}

// A window that takes input, or the popup, which takes it all.
QWidget* AnyWindow(Dice& dice)
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup;
    auto windows = RobotEyes::ShownWindows();
    std::erase_if(windows, RobotEyes::IsBlocked);
    if (windows.empty())
        throw RobotError("No window takes input.");
    return OneOf(windows, dice);
}

// A control that can be used, or the window itself. Buttons are what most things hang on.
QWidget* AnyControl(QWidget* window, Dice& dice)
{
    std::vector<QWidget*> controls{window};
    for (QWidget* control : window->findChildren<QWidget*>())
    {
        if (control->window() != window || !control->isVisible() || !control->isEnabled())
            continue;
        controls.insert(controls.end(), qobject_cast<QAbstractButton*>(control) ? 4 : 1, control);
    }
    return OneOf(controls, dice);
}

DeliveryPtr AnyClick(QWidget* window, Dice& dice)
{
    QWidget* const control = AnyControl(window, dice);
    const QPoint point(Below(control->width(), dice), Below(control->height(), dice));
    switch (Below(8, dice))
    {
    case 0:
        return RobotHands::Click(control, point, Qt::RightButton);
    case 1:
        return RobotHands::DoubleClick(control, point);
    case 2:
        return RobotHands::Drag(control, point, QPoint(Below(300, dice) - 150, Below(300, dice) - 150));
    case 3:
        return RobotHands::Click(control, point, Qt::LeftButton, Qt::ControlModifier);
    default:
        return RobotHands::Click(control, point, Qt::LeftButton);
    }
}

DeliveryPtr AnyKey(Dice& dice)
{
    static std::vector<std::string> keys{"Tab",   "Shift+Tab", "Return", "Space", "Esc",      "Menu",   "Up",
                                         "Down",  "Left",      "Right",  "Home",  "End",      "PgDown", "PgUp",
                                         "F1",    "F4",        "F10",    "Del",   "Alt+D",    "Alt+R",  "Alt+S",
                                         "Alt+H", "Alt+O",     "Alt+C",  "Alt+A", "Ctrl+Tab", "Ctrl+A", "Backspace"};
    return RobotHands::Key(OneOf(keys, dice));
}

DeliveryPtr AnyAct(Dice& dice)
{
    QWidget* const window = AnyWindow(dice);
    const bool isPopup = window->windowType() == Qt::Popup;
    const int die = Below(50, dice);
    if (isPopup ? die < 25 : die < 12)
        return AnyKey(dice);
    if (die == 12)
        return RobotHands::Close(window);
    if (die < 15)
        window->resize(Below(1500, dice), Below(1200, dice));
    if (die < 20)
        return RobotHands::TypeCharacter(static_cast<char>('0' + Below(75, dice)));
    return AnyClick(window, dice);
}

} // namespace

bool Robot::ActAtRandom(std::minstd_rand& dice) const
{
    bool done = true;
    RobotStage::Deliver(m_deadline, [&] {
        try
        {
            return AnyAct(dice);
        }
        catch (const RobotError&)
        {
            done = false; // covered, gone, or outside of the window
            return RobotStage::StartDelivery({});
        }
    });
    return done;
}

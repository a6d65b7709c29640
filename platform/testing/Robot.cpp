#include "platform/testing/Robot_p.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QProgressBar>

using namespace RobotEyes;
using RobotStage::Await;
using RobotStage::Deliver;

namespace
{

QWidget* ReadyControl(const std::string& name, const std::string& window)
{
    QWidget* control = ControlNamed(name, window);
    RequireReady(control);
    return control;
}

QMessageBox* BoxOnShow()
{
    if (auto* box = qobject_cast<QMessageBox*>(WindowNamed({})))
        return box;
    throw RobotError("No message box. On show: " + Describe());
}

QFileDialog* FolderDialogOnShow()
{
    auto* dialog = qobject_cast<QFileDialog*>(WindowNamed({}));
    if (dialog && !dialog->selectedFiles().isEmpty())
        return dialog;
    throw RobotError("No folder dialog. On show: " + Describe());
}

// Where a user presses a button or a box: in the middle, or on the indicator and its caption, which may be short.
QPoint PressPoint(const QWidget* control)
{
    const QPoint middle = control->rect().center();
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    return button && button->isCheckable() ? QPoint(middle.y(), middle.y()) : middle;
}

// A point of the window itself, between its controls.
QPoint BarePoint(const QWidget* window)
{
    constexpr int kStep = 3;
    for (int y = kStep; y < window->height(); y += kStep)
        for (int x = kStep; x < window->width(); x += kStep)
            if (!window->childAt(x, y))
                return {x, y};
    throw RobotError("Controls cover the whole window.");
}

int Percent(const std::string& window)
{
    const auto* bar = WindowNamed(window)->findChild<QProgressBar*>();
    if (!bar || bar->maximum() <= bar->minimum())
        throw RobotError("No progress bar. On show: " + Describe());
    return static_cast<int>(100.0 * (bar->value() - bar->minimum()) / (bar->maximum() - bar->minimum()));
}

} // namespace

std::vector<std::string> Robot::Windows() const
{
    return Await<std::vector<std::string>>(m_deadline, [] {
        std::vector<std::string> titles;
        for (const QWidget* window : ShownWindows())
            titles.push_back(window->windowTitle().toStdString());
        return titles;
    });
}

void Robot::WaitForWindow(const std::string& title) const
{
    Await<bool>(m_deadline, [&] { return WindowNamed(title) != nullptr; });
}

void Robot::WaitForNoWindow(const std::string& title) const
{
    const auto gone = [&] {
        for (const QWidget* window : ShownWindows())
            if (window->windowTitle().toStdString() == title)
                throw RobotError("The window \"" + title + "\" stays. On show: " + Describe());
        return true;
    };
    Await<bool>(m_deadline, gone);
}

void Robot::WaitUntil(const std::function<bool()>& condition, const std::string& what) const
{
    const auto end = std::chrono::steady_clock::now() + m_deadline;
    while (!condition())
    {
        if (std::chrono::steady_clock::now() >= end)
            throw RobotError("Waited in vain for " + what +
                             ". On show: " + Await<std::string>(m_deadline, [] { return Describe(); }));
        RobotStage::Pause();
    }
}

bool Robot::StaysFalse(const std::function<bool()>& condition, Milliseconds time) const
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end)
    {
        if (condition())
            return false;
        RobotStage::Pause();
    }
    return !condition();
}

void Robot::Press(const std::string& control, const std::string& window) const
{
    const auto aim = [&] {
        QWidget* target = ReadyControl(control, window);
        return RobotHands::Click(target, PressPoint(target), Qt::LeftButton);
    };
    Deliver(m_deadline, aim);
}

void Robot::PointAt(const std::string& control, const std::string& window) const
{
    const auto aim = [&] {
        QWidget* target = ControlNamed(control, window);
        return RobotHands::Move(target, target->rect().center());
    };
    Deliver(m_deadline, aim);
}

bool Robot::HasHand(const std::string& control, const std::string& window) const
{
    return Await<bool>(m_deadline,
                       [&] { return ControlNamed(control, window)->cursor().shape() == Qt::PointingHandCursor; });
}

std::vector<std::vector<DWORD>> Robot::Pixels(const std::string& control, const std::string& window) const
{
    const auto look = [&] {
        const QImage picture = ControlNamed(control, window)->grab().toImage();
        std::vector<std::vector<DWORD>> rows(static_cast<std::size_t>(picture.height()));
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
            {
                const QRgb pixel = picture.pixel(x, y);
                rows[static_cast<std::size_t>(y)].push_back(
                    static_cast<DWORD>(qRed(pixel) | qGreen(pixel) << 8 | qBlue(pixel) << 16));
            }
        return rows;
    };
    return Await<std::vector<std::vector<DWORD>>>(m_deadline, look);
}

bool Robot::IsEnabled(const std::string& control, const std::string& window) const
{
    return Await<bool>(m_deadline, [&] { return ControlNamed(control, window)->isEnabled(); });
}

bool Robot::IsShown(const std::string& control, const std::string& window) const
{
    const auto look = [&] {
        try
        {
            return ControlNamed(control, window)->isVisible();
        }
        catch (const RobotError&)
        {
            return false;
        }
    };
    return Await<bool>(m_deadline, look);
}

std::string Robot::Text(const std::string& control, const std::string& window) const
{
    return Await<std::string>(m_deadline, [&] { return TextOf(ControlNamed(control, window)).toStdString(); });
}

int Robot::ProgressPercent(const std::string& window) const
{
    return Await<int>(m_deadline, [&] { return Percent(window); });
}

std::string Robot::FocusName() const
{
    const auto look = [] {
        const QWidget* control = WindowNamed({})->focusWidget();
        return control ? NameOf(control).toStdString() : std::string();
    };
    return Await<std::string>(m_deadline, look);
}

std::string Robot::MessageBoxText() const
{
    return Await<std::string>(m_deadline, [] { return BoxOnShow()->text().toStdString(); });
}

void Robot::Answer(const std::string& button) const
{
    const auto box = std::make_shared<QPointer<QMessageBox>>(); // touched on the user-interface thread alone
    const auto aim = [&] {
        *box = BoxOnShow();
        for (QAbstractButton* choice : (*box)->buttons())
            if (PlainCaption(choice->text()).toStdString() == button)
                return RobotHands::Click(choice, choice->rect().center(), Qt::LeftButton);
        throw RobotError("No answer \"" + button + "\". On show: " + Describe());
    };
    Deliver(m_deadline, aim);
    const auto gone = [&] {
        if (*box && (*box)->isVisible())
            throw RobotError("The message box stays. On show: " + Describe());
        return true;
    };
    Await<bool>(m_deadline, gone);
}

void Robot::CloseWindow(const std::string& title) const
{
    const auto aim = [&] {
        QWidget* window = WindowNamed(title);
        if (IsBlocked(window))
            throw RobotError("\"" + title + "\" cannot be closed now. On show: " + Describe());
        return RobotHands::Close(window);
    };
    Deliver(m_deadline, aim);
}

void Robot::Key(const std::string& keys) const
{
    Deliver(m_deadline, [&] { return RobotHands::Key(keys); });
}

void Robot::Type(const std::string& control, const std::string& text, const std::string& window) const
{
    Press(control, window);
    Key("Ctrl+A");
    Key("Backspace");
    for (const char character : text)
        Deliver(m_deadline, [character] { return RobotHands::TypeCharacter(character); });
}

bool Robot::IsChecked(const std::string& control, const std::string& window) const
{
    const auto look = [&] {
        const auto* box = qobject_cast<QAbstractButton*>(ControlNamed(control, window));
        if (!box || !box->isCheckable())
            throw RobotError("\"" + control + "\" is no box to tick. On show: " + Describe());
        return box->isChecked();
    };
    return Await<bool>(m_deadline, look);
}

std::string Robot::BrowsedFolder() const
{
    return Await<std::string>(m_deadline,
                              [] { return FolderDialogOnShow()->selectedFiles().constFirst().toStdString(); });
}

void Robot::TypeFolder(const std::string& path) const
{
    const auto aim = [&] {
        auto* edit = FolderDialogOnShow()->findChild<QLineEdit*>();
        RequireReady(edit);
        auto click = RobotHands::Click(edit, edit->rect().center(), Qt::LeftButton);
        const auto paste = [target = QPointer<QLineEdit>(edit), text = QString::fromStdString(path)] {
            if (target)
                target->setText(text);
        };
        RobotStage::StartDelivery({paste});
        return click;
    };
    Deliver(m_deadline, aim);
    WaitUntil([&] { return BrowsedFolder() == path; }, "the folder typed");
}

void Robot::RightClickWindow(const std::string& window) const
{
    const auto aim = [&] {
        QWidget* target = WindowNamed(window);
        if (IsBlocked(target))
            throw RobotError("\"" + window + "\" cannot be clicked now. On show: " + Describe());
        return RobotHands::Click(target, BarePoint(target), Qt::RightButton);
    };
    Deliver(m_deadline, aim);
}

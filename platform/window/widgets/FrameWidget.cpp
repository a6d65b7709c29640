#include "platform/window/widgets/FrameWidget_p.h"

#include "platform/window/CommandText_p.h"
#include "platform/window/MenuPopup_p.h"
#include "platform/window/WindowRecord_p.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>

namespace
{

constexpr QSize kFirstSize(760, 480);
constexpr QSize kWindowManagersPart(8, 40); // about what the borders and the title take

class ClientAreaWidget : public QWidget
{
protected:
    void resizeEvent(QResizeEvent*) override
    {
        for (QObject* child : children())
        {
            if (auto* window = qobject_cast<QWidget*>(child))
                window->setGeometry(rect());
        }
    }
};

} // namespace

FrameWidget::FrameWidget(QWidget* parent, std::function<bool(UINT)> handles)
    : QMainWindow(parent, Qt::Window), m_handles(std::move(handles))
{
    setCentralWidget(new ClientAreaWidget);
    resize(kFirstSize.boundedTo(screen()->availableGeometry().size() - kWindowManagersPart));
    auto* shortcut = new QShortcut(QKeySequence(Qt::Key_F10), this);
    connect(shortcut, &QShortcut::activated, this, [this] { OpenFirstMenu(); });
}

void FrameWidget::TellSize()
{
    const auto record = m_record;
    m_size.Tell(*record, size());
}

bool FrameWidget::LoadMenuBar(UINT id)
{
    CMenu menu;
    if (!menu.LoadMenu(id))
        return false;
    // In the window, also where the desktop could put it elsewhere: the keys lead there.
    menuBar()->setNativeMenuBar(false);
    FillMenuBar(*menuBar(), menu.m_hMenu);
    for (QAction* action : menuBar()->findChildren<QAction*>())
    {
        if (const UINT command = action->data().toUInt())
            AddCommand(*action, command);
    }
    return true;
}

void FrameWidget::AddCommand(QAction& action, UINT command)
{
    action.setStatusTip(LoadCommandText(command).prompt);
    action.setEnabled(m_handles(command));
    connect(&action, &QAction::triggered, this, [this, command] {
        const auto record = m_record;
        record->SendFromToolkit(WM_COMMAND, command, 0);
    });
}

void FrameWidget::OpenFirstMenu()
{
    const auto entries = menuBar()->actions();
    if (!entries.isEmpty())
        menuBar()->setActiveAction(entries.front());
}

void FrameWidget::closeEvent(QCloseEvent* event)
{
    event->ignore();
    const auto record = m_record;
    record->SendFromToolkit(WM_CLOSE, 0, 0);
}

void FrameWidget::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    TellSize();
}

void FrameWidget::showEvent(QShowEvent* event)
{
    PlaceFirstTime();
    QMainWindow::showEvent(event);
}

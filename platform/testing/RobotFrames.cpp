// The robot at frames: menu bars, trees, splitters, status bars.
#include "platform/testing/Robot_p.h"
#include "platform/window/widgets/SplitterWidget_p.h"

#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>

using namespace RobotEyes;
using RobotStage::Await;
using RobotStage::Deliver;

namespace
{

QMainWindow* FrameNamed(const std::string& title)
{
    if (auto* frame = qobject_cast<QMainWindow*>(WindowNamed(title)))
        return frame;
    throw RobotError("\"" + title + "\" is no frame. On show: " + Describe());
}

QAction* MainMenuNamed(const QMenuBar* bar, const std::string& text)
{
    for (QAction* menu : bar->actions())
        if (PlainCaption(menu->text()).toStdString() == text)
            return menu;
    throw RobotError("No menu \"" + text + "\" in the menu bar. On show: " + Describe());
}

// A message for a while stands before the others.
QString MessageOf(const QStatusBar* bar)
{
    if (!bar->currentMessage().isEmpty())
        return bar->currentMessage();
    const auto* label = bar->findChild<QLabel*>();
    return label ? label->text() : QString();
}

void AddNodes(const QTreeView* tree, const QModelIndex& parent, const std::string& indent,
              std::vector<std::string>& nodes)
{
    for (int row = 0; row < tree->model()->rowCount(parent); ++row)
    {
        const QModelIndex node = tree->model()->index(row, 0, parent);
        nodes.push_back(indent + node.data().toString().toStdString());
        if (tree->isExpanded(node))
            AddNodes(tree, node, indent + "  ", nodes);
    }
}

QModelIndex ChildNamed(const QTreeView* tree, const QModelIndex& parent, const std::string& text)
{
    for (int row = 0; row < tree->model()->rowCount(parent); ++row)
    {
        const QModelIndex node = tree->model()->index(row, 0, parent);
        if (node.data().toString().toStdString() == text)
            return node;
    }
    throw RobotError("No node \"" + text + "\" in the tree.");
}

// Where a node stands, scrolled into sight; what is above it must be expanded.
QRect NodePlace(QTreeView* tree, const Robot::NodePath& path, QModelIndex& node)
{
    RequireReady(tree);
    for (const std::string& text : path)
    {
        if (node.isValid() && !tree->isExpanded(node))
            throw RobotError("The node above \"" + text + "\" is not expanded.");
        node = ChildNamed(tree, node, text);
    }
    if (!tree->viewport()->rect().contains(tree->visualRect(node).center()))
    {
        tree->scrollTo(node);
        throw RobotError("The tree does not scroll to \"" + path.back() + "\".");
    }
    return tree->visualRect(node);
}

QWidget* SplitterOf(const std::string& window)
{
    if (auto* splitter = WindowNamed(window)->findChild<QWidget*>(QLatin1String(kSplitterName)))
        return splitter;
    throw RobotError("No splitter in \"" + window + "\". On show: " + Describe());
}

std::vector<QRect> PanesOf(const QWidget* splitter)
{
    std::vector<QRect> panes;
    for (const QObject* child : splitter->children())
        if (const auto* pane = qobject_cast<const QWidget*>(child))
            panes.push_back(pane->geometry());
    return panes;
}

QToolBar* ToolBarOf(const std::string& window)
{
    if (auto* bar = FrameNamed(window)->findChild<QToolBar*>())
        return bar;
    throw RobotError("No tool bar in \"" + window + "\". On show: " + Describe());
}

// Just within that edge of what menu bar and status bar leave, in its middle.
QPoint PlaceAtEdge(const QMainWindow* frame, const std::string& edge)
{
    constexpr int kWithin = 3;
    const QRect area(QPoint(0, frame->menuBar()->geometry().bottom() + 1),
                     QPoint(frame->width() - 1, frame->statusBar()->geometry().top() - 1));
    if (edge == "left" || edge == "right")
        return {edge == "left" ? kWithin : area.right() - kWithin, area.center().y()};
    return {area.center().x(), edge == "top" ? area.top() + kWithin : area.bottom() - kWithin};
}

} // namespace

std::vector<std::string> Robot::MainMenus(const std::string& window) const
{
    const auto look = [&] {
        std::vector<std::string> menus;
        for (const QAction* menu : FrameNamed(window)->menuBar()->actions())
            menus.push_back(PlainCaption(menu->text()).toStdString());
        return menus;
    };
    return Await<std::vector<std::string>>(m_deadline, look);
}

void Robot::OpenMainMenu(const std::string& menu, const std::string& window) const
{
    const auto aim = [&] {
        QMenuBar* bar = FrameNamed(window)->menuBar();
        RequireReady(bar);
        return RobotHands::Click(bar, bar->actionGeometry(MainMenuNamed(bar, menu)).center(), Qt::LeftButton);
    };
    Deliver(m_deadline, aim);
}

void Robot::ChooseMainMenu(const std::string& menu, const std::string& entry, const std::string& window) const
{
    OpenMainMenu(menu, window);
    ChooseMenu(entry);
}

std::string Robot::ToolBarEdge(const std::string& window) const
{
    const auto look = [&]() -> std::string {
        switch (FrameNamed(window)->toolBarArea(ToolBarOf(window)))
        {
        case Qt::LeftToolBarArea:
            return "left";
        case Qt::RightToolBarArea:
            return "right";
        case Qt::BottomToolBarArea:
            return "bottom";
        default:
            return "top";
        }
    };
    return Await<std::string>(m_deadline, look);
}

void Robot::DragToolBar(const std::string& edge, const std::string& window) const
{
    const auto aim = [&] {
        QToolBar* bar = ToolBarOf(window);
        RequireReady(bar);
        constexpr int kGripper = 5; // within it, from the bar's begin
        const QPoint gripper = bar->orientation() == Qt::Horizontal ? QPoint(kGripper, bar->height() / 2)
                                                                    : QPoint(bar->width() / 2, kGripper);
        const QPoint place = PlaceAtEdge(FrameNamed(window), edge);
        return RobotHands::Drag(bar, gripper, place - bar->mapTo(bar->window(), gripper));
    };
    // A bar that still glides to its last place cannot be taken.
    const auto stands = [&] {
        if (ToolBarEdge(window) != edge)
            Deliver(m_deadline, aim);
        return ToolBarEdge(window) == edge;
    };
    WaitUntil(stands, "the tool bar to stand " + edge);
}

std::string Robot::StatusText(const std::string& window) const
{
    return Await<std::string>(m_deadline, [&] { return MessageOf(FrameNamed(window)->statusBar()).toStdString(); });
}

std::vector<std::string> Robot::TreeNodes(const std::string& window) const
{
    const auto look = [&] {
        std::vector<std::string> nodes;
        AddNodes(TreeOf(window), {}, {}, nodes);
        return nodes;
    };
    return Await<std::vector<std::string>>(m_deadline, look);
}

std::string Robot::SelectedNode(const std::string& window) const
{
    const auto look = [&] {
        const auto selected = TreeOf(window)->selectionModel()->selectedRows();
        return selected.isEmpty() ? std::string() : selected.front().data().toString().toStdString();
    };
    return Await<std::string>(m_deadline, look);
}

void Robot::SelectNode(const NodePath& path, const std::string& window) const
{
    const auto aim = [&] {
        QTreeView* tree = TreeOf(window);
        QModelIndex node;
        const QPoint below = tree->viewport()->rect().bottomLeft() + QPoint(1, -1);
        const QPoint place = path.empty() ? below : NodePlace(tree, path, node).center();
        return RobotHands::Click(tree->viewport(), place, Qt::LeftButton);
    };
    Deliver(m_deadline, aim);
}

void Robot::ExpandNode(const NodePath& path, const std::string& window) const
{
    const auto aim = [&] {
        QTreeView* tree = TreeOf(window);
        QModelIndex node;
        const QRect place = NodePlace(tree, path, node);
        if (tree->isExpanded(node))
            return std::make_shared<RobotStage::Delivery>();
        const QPoint button(place.left() - tree->indentation() / 2, place.center().y());
        return RobotHands::Click(tree->viewport(), button, Qt::LeftButton);
    };
    Deliver(m_deadline, aim);
}

std::vector<RECT> Robot::Panes(const std::string& window) const
{
    const auto look = [&] {
        std::vector<RECT> panes;
        for (const QRect& pane : PanesOf(SplitterOf(window)))
            panes.push_back({pane.left(), pane.top(), pane.left() + pane.width(), pane.top() + pane.height()});
        return panes;
    };
    return Await<std::vector<RECT>>(m_deadline, look);
}

void Robot::DragBar(std::size_t pane, int byX, int byY, const std::string& window) const
{
    const auto aim = [&] {
        QWidget* splitter = SplitterOf(window);
        RequireReady(splitter);
        constexpr int kBeside = 3; // within the bar
        const QRect before = PanesOf(splitter).at(pane);
        const QPoint bar = byX != 0 ? QPoint(before.x() + before.width() + kBeside, before.center().y())
                                    : QPoint(before.center().x(), before.y() + before.height() + kBeside);
        return RobotHands::Drag(splitter, bar, QPoint(byX, byY));
    };
    Deliver(m_deadline, aim);
}

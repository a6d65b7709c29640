// The robot at lists and menus.
#include "platform/testing/Robot_p.h"

#include <QAbstractItemView>
#include <QAction>
#include <QMenu>
#include <QStyle>
#include <QStyleOptionViewItem>

using namespace RobotEyes;
using RobotStage::Await;
using RobotStage::Deliver;

namespace
{

QAbstractItemView* ReadyList(const std::string& window)
{
    QAbstractItemView* list = ListOf(window);
    RequireReady(list);
    return list;
}

// Scrolling takes the list a turn of the event loop, after which the next look finds the cell at rest.
void ScrollTo(QAbstractItemView* list, const QModelIndex& cell)
{
    if (list->viewport()->rect().contains(list->visualRect(cell).center()))
        return;
    list->scrollTo(cell);
    throw RobotError("The list does not scroll to row " + std::to_string(cell.row()) + '.');
}

QPoint TickPoint(QAbstractItemView* list, const QModelIndex& cell)
{
    ScrollTo(list, cell);
    QStyleOptionViewItem option;
    option.initFrom(list);
    option.rect = list->visualRect(cell);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    return list->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, list).center();
}

QPoint RowPoint(QAbstractItemView* list, int row)
{
    if (row >= 0)
    {
        ScrollTo(list, CellOf(list, row, 0));
        return list->visualRect(CellOf(list, row, 0)).center();
    }
    const QPoint below(list->viewport()->width() / 2, list->viewport()->height() - 2);
    if (list->indexAt(below).isValid())
        throw RobotError("The rows fill the list.");
    return below;
}

} // namespace

int Robot::RowCount(const std::string& window) const
{
    return Await<int>(m_deadline, [&] { return ListOf(window)->model()->rowCount(); });
}

std::string Robot::ListHint(const std::string& window) const
{
    const auto look = [&] {
        const auto* list = ListOf(window);
        return list->model()->rowCount() > 0 ? std::string() : list->accessibleDescription().toStdString();
    };
    return Await<std::string>(m_deadline, look);
}

std::vector<std::string> Robot::Columns(const std::string& window) const
{
    const auto look = [&] {
        const QAbstractItemModel* model = ListOf(window)->model();
        std::vector<std::string> captions;
        for (int column = 0; column < model->columnCount(); ++column)
            captions.push_back(model->headerData(column, Qt::Horizontal).toString().toStdString());
        return captions;
    };
    return Await<std::vector<std::string>>(m_deadline, look);
}

std::string Robot::Cell(int row, int column, const std::string& window) const
{
    return Await<std::string>(m_deadline,
                              [&] { return CellOf(ListOf(window), row, column).data().toString().toStdString(); });
}

bool Robot::IsTicked(int row, const std::string& window) const
{
    return Await<bool>(m_deadline,
                       [&] { return CellOf(ListOf(window), row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked; });
}

void Robot::Tick(int row, const std::string& window) const
{
    const auto aim = [&] {
        QAbstractItemView* list = ReadyList(window);
        const QModelIndex cell = CellOf(list, row, 0);
        if (!cell.data(Qt::CheckStateRole).isValid())
            throw RobotError("The rows have no box to tick.");
        return RobotHands::Click(list->viewport(), TickPoint(list, cell), Qt::LeftButton);
    };
    Deliver(m_deadline, aim);
}

void Robot::RightClickList(int row, const std::string& window) const
{
    const auto aim = [&] {
        QAbstractItemView* list = ReadyList(window);
        return RobotHands::Click(list->viewport(), RowPoint(list, row), Qt::RightButton);
    };
    Deliver(m_deadline, aim);
}

void Robot::DoubleClickRow(int row, const std::string& window) const
{
    const auto aim = [&] {
        QAbstractItemView* list = ReadyList(window);
        return RobotHands::DoubleClick(list->viewport(), RowPoint(list, row));
    };
    Deliver(m_deadline, aim);
}

void Robot::ClickRow(int row, bool add, const std::string& window) const
{
    const auto aim = [&] {
        QAbstractItemView* list = ReadyList(window);
        return RobotHands::Click(list->viewport(), RowPoint(list, row), Qt::LeftButton,
                                 add ? Qt::ControlModifier : Qt::NoModifier);
    };
    Deliver(m_deadline, aim);
}

std::vector<std::string> Robot::MenuEntries() const
{
    const auto look = [] {
        std::vector<std::string> entries;
        for (const QAction* entry : PopupMenu()->actions())
            if (entry->isVisible())
                entries.push_back(entry->isSeparator() ? "-" : PlainCaption(entry->text()).toStdString());
        return entries;
    };
    return Await<std::vector<std::string>>(m_deadline, look);
}

bool Robot::IsMenuEntryEnabled(const std::string& text) const
{
    return Await<bool>(m_deadline, [&] { return MenuEntryNamed(text)->isEnabled(); });
}

void Robot::ChooseMenu(const std::string& text) const
{
    const auto aim = [&] {
        QAction* entry = MenuEntryNamed(text);
        if (!entry->isEnabled())
            throw RobotError("The menu entry \"" + text + "\" is greyed. On show: " + Describe());
        QMenu* menu = PopupMenu();
        return RobotHands::Click(menu, menu->actionGeometry(entry).center(), Qt::LeftButton);
    };
    Deliver(m_deadline, aim);
}

void Robot::CloseMenu() const
{
    const auto aim = [] {
        PopupMenu();
        return RobotHands::Key("Esc");
    };
    Deliver(m_deadline, aim);
}

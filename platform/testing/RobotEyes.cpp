#include "platform/testing/Robot_p.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QTreeView>

#include <algorithm>

namespace
{

bool IsAmong(const QWidget* window, const QWidget* ancestor)
{
    for (; window; window = window->parentWidget())
        if (window == ancestor)
            return true;
    return false;
}

const QWidget* RootOf(const QWidget* window)
{
    while (window->parentWidget())
        window = window->parentWidget();
    return window;
}

bool IsOrdinaryWindow(const QWidget* window)
{
    return window->isVisible() && window->windowType() != Qt::Popup && window->windowType() != Qt::ToolTip;
}

QWidget* WindowInFront()
{
    if (QWidget* modal = QApplication::activeModalWidget(); modal && modal->isVisible())
        return modal;
    QWidget* active = QApplication::activeWindow();
    return active && IsOrdinaryWindow(active) ? active : nullptr;
}

std::string Quoted(const QString& text)
{
    return '"' + text.toStdString() + '"';
}

// The text that a control shows, whatever its kind keeps it under.
QString ShownText(const QWidget* control)
{
    const QVariant text = control->property("text");
    return text.isValid() ? text.toString() : control->property("title").toString();
}

bool IsNamed(const QWidget* control, const QString& name)
{
    const QString caption = ShownText(control);
    return caption == name || RobotEyes::PlainCaption(caption) == name || control->accessibleName() == name;
}

// Among controls of one name the one that a user would take: shown before hidden, ready before not, and the control
// itself before the label that leads to it.
int Rank(const QWidget* control)
{
    const bool label = qobject_cast<const QLabel*>(control) || qobject_cast<const QGroupBox*>(control);
    return (control->isVisible() ? 4 : 0) + (label ? 0 : 2) + (control->isEnabled() ? 1 : 0);
}

// Lists have captions above their columns, trees have none.
QTreeView* ViewWith(bool captions, const std::string& window)
{
    for (QTreeView* view : RobotEyes::WindowNamed(window)->findChildren<QTreeView*>())
        if (view->isVisible() && view->isHeaderHidden() != captions)
            return view;
    return nullptr;
}

std::string DescribeWindow(const QWidget* window)
{
    std::string text = Quoted(window->windowTitle());
    if (const auto* box = qobject_cast<const QMessageBox*>(window))
        text += " saying " + Quoted(box->text());
    text += RobotEyes::IsBlocked(window) ? " (blocked) with" : " with";
    for (const QWidget* control : window->findChildren<QWidget*>())
    {
        const QString name = RobotEyes::NameOf(control);
        if (!name.isEmpty() && control->isVisible())
            text += ' ' + Quoted(name) + (control->isEnabled() ? "" : " (disabled)");
    }
    return text + ". ";
}

} // namespace

namespace RobotEyes
{

std::vector<QWidget*> ShownWindows()
{
    std::vector<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (IsOrdinaryWindow(window))
            windows.push_back(window);
    const QWidget* front = WindowInFront();
    std::stable_partition(windows.begin(), windows.end(), [front](const QWidget* window) { return window != front; });
    return windows;
}

QWidget* WindowNamed(const std::string& title)
{
    const auto windows = ShownWindows();
    const auto named = [&title](const QWidget* window) {
        return title.empty() || window->windowTitle().toStdString() == title;
    };
    const auto found = std::find_if(windows.rbegin(), windows.rend(), named);
    if (found == windows.rend())
        throw RobotError("No window \"" + title + "\". On show: " + Describe());
    return *found;
}

bool IsBlocked(const QWidget* window)
{
    // The last one to come is blocked by none.
    if (window == QApplication::activeModalWidget())
        return false;
    for (const QWidget* modal : QApplication::topLevelWidgets())
    {
        const bool holds = modal->isVisible() && modal->isModal() && !IsAmong(window, modal);
        if (holds && (modal->windowModality() == Qt::ApplicationModal || RootOf(window) == RootOf(modal)))
            return true;
    }
    return false;
}

QString PlainCaption(QString text)
{
    text = text.section(QLatin1Char('\t'), 0, 0);
    text.replace(QLatin1String("&&"), QString(QChar(1)));
    text.remove(QLatin1Char('&'));
    return text.replace(QChar(1), QLatin1Char('&'));
}

QString NameOf(const QWidget* control)
{
    if (!control->accessibleName().isEmpty())
        return control->accessibleName();
    return qobject_cast<const QLineEdit*>(control) ? QString() : PlainCaption(ShownText(control));
}

QString TextOf(const QWidget* control)
{
    const QString text = ShownText(control);
    const auto* label = qobject_cast<const QLabel*>(control);
    const bool marked = qobject_cast<const QAbstractButton*>(control) || qobject_cast<const QGroupBox*>(control) ||
                        (label && label->buddy());
    return marked ? PlainCaption(text) : text;
}

QWidget* ControlNamed(const std::string& name, const std::string& window)
{
    QWidget* best = nullptr;
    for (QWidget* control : WindowNamed(window)->findChildren<QWidget*>())
        if (!control->isWindow() && IsNamed(control, QString::fromStdString(name)) &&
            (!best || Rank(control) > Rank(best)))
            best = control;
    if (!best)
        throw RobotError("No control \"" + name + "\". On show: " + Describe());
    return best;
}

QAbstractItemView* ListOf(const std::string& window)
{
    if (QTreeView* list = ViewWith(true, window))
        return list;
    for (QListView* list : WindowNamed(window)->findChildren<QListView*>())
        if (list->isVisible())
            return list;
    throw RobotError("No list in \"" + window + "\". On show: " + Describe());
}

QTreeView* TreeOf(const std::string& window)
{
    if (QTreeView* tree = ViewWith(false, window))
    {
        // What waits for a layout is done before a user could look.
        tree->doItemsLayout();
        return tree;
    }
    throw RobotError("No tree in \"" + window + "\". On show: " + Describe());
}

void RequireReady(const QWidget* widget)
{
    if (!widget->isVisible() || !widget->isEnabled() || IsBlocked(widget->window()))
        throw RobotError("\"" + NameOf(widget).toStdString() + "\" cannot be used now. On show: " + Describe());
}

QModelIndex CellOf(const QAbstractItemView* list, int row, int column)
{
    const QModelIndex cell = list->model()->index(row, column);
    if (!cell.isValid())
        throw RobotError("No row " + std::to_string(row) + " with column " + std::to_string(column) + " among " +
                         std::to_string(list->model()->rowCount()) + " rows.");
    return cell;
}

QMenu* PopupMenu()
{
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
        return menu;
    throw RobotError("No menu on show. On show: " + Describe());
}

QAction* MenuEntryNamed(const std::string& text)
{
    const QString name = QString::fromStdString(text);
    for (QAction* entry : PopupMenu()->actions())
        if (entry->isVisible() && !entry->isSeparator() &&
            (entry->text() == name || PlainCaption(entry->text()) == name))
            return entry;
    throw RobotError("No menu entry \"" + text + "\". On show: " + Describe());
}

std::string Describe()
{
    std::string text;
    for (const QWidget* window : ShownWindows())
        text += DescribeWindow(window);
    if (const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
    {
        text += "A menu with";
        for (const QAction* entry : menu->actions())
            text += ' ' + Quoted(PlainCaption(entry->text())) + (entry->isEnabled() ? "" : " (greyed)");
    }
    return text.empty() ? "nothing" : text;
}

} // namespace RobotEyes

#include "platform/window/ListWidget_p.h"

#include "platform/window/Controls.h"
#include "platform/window/CursorPosition_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/WindowRecord_p.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace
{

// The cell's bytes as the program gave them.
constexpr int kBytesRole = Qt::UserRole;

// One line, and not longer than any cell can show: a page's title is anybody's text.
class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override
    {
        constexpr qsizetype kLongest = 1000;
        QString text = value.toString().left(kLongest);
        for (QChar& c : text)
        {
            if (c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line)
                c = u' ';
        }
        return text;
    }

    // Room for the grid's lines, so that they touch no letter.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        constexpr int kGridRoom = 4;
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kGridRoom);
    }
};

} // namespace

ListWidget::ListWidget(QWidget* parent) : QTreeWidget(parent)
{
    setColumnCount(0);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new CellDelegate(this));
    setHorizontalScrollMode(ScrollPerPixel);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header(), &QWidget::customContextMenuRequested, this, [this] { Notify(NM_RCLICK, -1, 0); });
    connect(this, &QTreeWidget::itemChanged, this,
            [this](QTreeWidgetItem* item, int column) { NotifyChanged(item, column); });
    connect(this, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* item, QTreeWidgetItem*) { NotifyChanged(item, 0); });
}

bool ListWidget::HasTicks() const
{
    return m_style & LVS_EX_CHECKBOXES;
}

QTreeWidgetItem* ListWidget::Row(int row) const
{
    return row < 0 ? nullptr : topLevelItem(row);
}

void ListWidget::PrepareTick(QTreeWidgetItem& item) const
{
    if (!HasTicks())
        item.setData(0, Qt::CheckStateRole, QVariant());
    else if (!item.data(0, Qt::CheckStateRole).isValid())
        item.setCheckState(0, Qt::Unchecked);
}

void ListWidget::SetStyle(DWORD style)
{
    m_style = style;
    const QSignalBlocker blocker(this);
    for (int row = 0; row < topLevelItemCount(); ++row)
        PrepareTick(*topLevelItem(row));
    viewport()->update();
}

int ListWidget::AddColumn(int column, const QString& caption, int width)
{
    // The toolkit counts columns of the whole tree; a new one goes to its place by its captions and widths.
    const int count = columnCount();
    const int place = column < 0 || column > count ? count : column;
    const QSignalBlocker blocker(this);
    QStringList captions;
    for (int i = 0; i < count; ++i)
        captions += headerItem()->text(i);
    captions.insert(place, caption);
    setColumnCount(count + 1);
    setHeaderLabels(captions);
    for (int i = count; i > place; --i)
        setColumnWidth(i, columnWidth(i - 1));
    setColumnWidth(place, width);
    m_lastColumnWidth = place == count ? width : columnWidth(count);
    FitLastColumn();
    return place;
}

int ListWidget::AddRow(int row, const std::string& text)
{
    const int place = row < 0 || row > topLevelItemCount() ? topLevelItemCount() : row;
    auto* item = new QTreeWidgetItem;
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren);
    PrepareTick(*item);
    const QSignalBlocker blocker(this);
    insertTopLevelItem(place, item);
    SetCell(place, 0, text);
    return place;
}

bool ListWidget::SetCell(int row, int column, const std::string& text)
{
    QTreeWidgetItem* item = Row(row);
    if (!item || column < 0 || column >= qMax(1, columnCount()))
        return false;
    item->setText(column, ToolkitText(text));
    const QSignalBlocker blocker(this);
    item->setData(column, kBytesRole, QByteArray::fromStdString(text));
    return true;
}

std::string ListWidget::Cell(int row, int column) const
{
    const QTreeWidgetItem* item = Row(row);
    return item ? item->data(column, kBytesRole).toByteArray().toStdString() : std::string();
}

void ListWidget::RemoveRows()
{
    const QSignalBlocker blocker(this);
    clear();
}

bool ListWidget::IsTicked(int row) const
{
    const QTreeWidgetItem* item = Row(row);
    return item && item->checkState(0) == Qt::Checked;
}

bool ListWidget::Tick(int row, bool tick)
{
    QTreeWidgetItem* item = Row(row);
    if (!item || !HasTicks())
        return false;
    item->setCheckState(0, tick ? Qt::Checked : Qt::Unchecked);
    return true;
}

void ListWidget::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard)
    {
        QTreeWidgetItem* item = itemAt(event->pos());
        Notify(NM_RCLICK, indexOfTopLevelItem(item), 0);
        return;
    }
    QTreeWidgetItem* item = currentItem();
    const PointedAt place(viewport()->mapToGlobal(item ? visualItemRect(item).bottomLeft() : QPoint()));
    Notify(NM_RCLICK, indexOfTopLevelItem(item), 0);
}

void ListWidget::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QTreeWidget::drawRow(painter, option, index);
    if (!(m_style & LVS_EX_GRIDLINES))
        return;
    const auto line = static_cast<QRgb>(style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this));
    painter->save();
    painter->setPen(QColor::fromRgba(line));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    for (int column = 0; column < columnCount(); ++column)
    {
        const int x = columnViewportPosition(column) + columnWidth(column) - 1;
        painter->drawLine(x, option.rect.top(), x, option.rect.bottom());
    }
    painter->restore();
}

void ListWidget::keyPressEvent(QKeyEvent* event)
{
    // The toolkit turns the box only while its own column has the focus.
    if (event->key() != Qt::Key_Space || !HasTicks() || !currentItem())
    {
        QTreeWidget::keyPressEvent(event);
        return;
    }
    const int row = indexOfTopLevelItem(currentItem());
    Tick(row, !IsTicked(row));
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeWidget::mouseDoubleClickEvent(event);
    Notify(NM_DBLCLK, indexOfTopLevelItem(itemAt(event->pos())), 0);
}

void ListWidget::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    FitLastColumn();
}

bool ListWidget::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeWidget::viewportEvent(event);
    ShowCellTip(*static_cast<QHelpEvent*>(event));
    return true;
}

void ListWidget::FitLastColumn()
{
    const int last = columnCount() - 1;
    if (last < 0)
        return;
    int left = viewport()->width();
    for (int column = 0; column < last; ++column)
        left -= columnWidth(column);
    setColumnWidth(last, qMax(m_lastColumnWidth, left));
}

void ListWidget::ShowCellTip(const QHelpEvent& event)
{
    const QModelIndex cell = indexAt(event.pos());
    const QRect room = visualRect(cell);
    const bool cut =
        cell.isValid() && (sizeHintForIndex(cell).width() > room.width() || !viewport()->rect().contains(room));
    ShowToolTip(event, cut ? cell.data().toString() : QString(), viewport());
}

void ListWidget::NotifyChanged(QTreeWidgetItem* item, int column)
{
    if (item)
        Notify(LVN_ITEMCHANGED, indexOfTopLevelItem(item), column);
}

void ListWidget::Notify(UINT code, int row, int column)
{
    NMLISTVIEW notification;
    notification.hdr.code = code;
    notification.iItem = row;
    notification.iSubItem = column;
    m_record->NotifyParent(notification.hdr);
}

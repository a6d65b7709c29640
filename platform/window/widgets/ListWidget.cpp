#include "platform/window/widgets/ListWidget_p.h"

#include "platform/window/Controls.h"
#include "platform/window/CursorPosition_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/widgets/ItemCells_p.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QSignalBlocker>

namespace
{

// For the grid's lines, so that they touch no letter.
constexpr int kGridRoom = 4;

} // namespace

ListWidget::ListWidget(QWidget* parent) : QTreeWidget(parent)
{
    setColumnCount(0);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new CellDelegate(kGridRoom, this));
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

void ListWidget::ShowText(const QString& text)
{
    if (!text.isEmpty())
        setAccessibleName(text);
}

bool ListWidget::HasTicks() const
{
    return m_style & LVS_EX_CHECKBOXES;
}

ListRow* ListWidget::Row(int row) const
{
    return row < 0 ? nullptr : static_cast<ListRow*>(topLevelItem(row));
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

void ListWidget::SetImages(std::shared_ptr<const CImageList::Images> images)
{
    m_images = std::move(images);
    if (m_images)
        setIconSize(QSize(m_images->width, m_images->width));
    viewport()->update();
}

void ListWidget::SetPlaceholder(const QString& text)
{
    m_placeholder = text;
    setAccessibleDescription(text);
    viewport()->update();
}

void ListWidget::SetRedraw(bool redraw)
{
    m_bQuiet = !redraw;
    setUpdatesEnabled(redraw);
}

QStringList ListWidget::Captions() const
{
    QStringList captions;
    for (int column = 0; column < columnCount(); ++column)
        captions += headerItem()->text(column);
    return captions;
}

// The toolkit counts columns of the whole tree and drops the last one: captions and widths go to their places.
void ListWidget::ShowColumns(const QStringList& captions)
{
    setColumnCount(static_cast<int>(captions.size()));
    if (captions.isEmpty())
        return;
    setHeaderLabels(captions);
    for (int column = 0; column < columnCount(); ++column)
        setColumnWidth(column, m_widths[static_cast<std::size_t>(column)]);
    FitLastColumn();
}

int ListWidget::AddColumn(int column, const QString& caption, int width)
{
    const int count = columnCount();
    const int place = column < 0 || column > count ? count : column;
    const QSignalBlocker blocker(this);
    QStringList captions = Captions();
    captions.insert(place, caption);
    m_widths.insert(m_widths.begin() + place, width);
    // A first column shows what the rows hold already.
    for (int row = 0; count > 0 && row < topLevelItemCount(); ++row)
        Row(row)->InsertCell(place);
    ShowColumns(captions);
    return place;
}

bool ListWidget::RemoveColumn(int column)
{
    if (column < 0 || column >= columnCount())
        return false;
    const QSignalBlocker blocker(this);
    QStringList captions = Captions();
    captions.removeAt(column);
    m_widths.erase(m_widths.begin() + column);
    for (int row = 0; row < topLevelItemCount(); ++row)
        Row(row)->RemoveCell(column);
    ShowColumns(captions);
    viewport()->update();
    return true;
}

int ListWidget::AddRow(int row, const std::string& text, int image)
{
    const int place = row < 0 || row > topLevelItemCount() ? topLevelItemCount() : row;
    auto* item = new ListRow(image);
    item->SetText(0, text);
    PrepareTick(*item);
    const QSignalBlocker blocker(this);
    insertTopLevelItem(place, item);
    return place;
}

int ListWidget::FirstSelectedRow() const
{
    const auto selected = selectedItems();
    return selected.isEmpty() ? -1 : indexOfTopLevelItem(selected.front());
}

bool ListWidget::SetCell(int row, int column, const std::string& text)
{
    ListRow* item = Row(row);
    if (!item || column < 0 || column >= qMax(1, columnCount()))
        return false;
    if (!item->SetText(column, text) || m_bQuiet)
        return true;
    {
        const QSignalBlocker blocker(this);
        item->Refresh();
    }
    Notify(LVN_ITEMCHANGED, row, column);
    return true;
}

std::string ListWidget::Cell(int row, int column) const
{
    const ListRow* item = Row(row);
    return item ? item->Text(column) : std::string();
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
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && m_bEnter && FirstSelectedRow() >= 0)
    {
        Notify(NM_DBLCLK, FirstSelectedRow(), 0);
        return;
    }
    // The toolkit turns the box only while its own column has the focus.
    if (event->key() != Qt::Key_Space || !HasTicks() || !currentItem())
    {
        QTreeWidget::keyPressEvent(event);
        return;
    }
    const int row = indexOfTopLevelItem(currentItem());
    Tick(row, !IsTicked(row));
}

void ListWidget::paintEvent(QPaintEvent* event)
{
    QTreeWidget::paintEvent(event);
    if (topLevelItemCount() > 0 || m_placeholder.isEmpty())
        return;
    QPainter painter(viewport());
    // Not every dark desktop sets the palette's own colour for this.
    QColor faint = palette().color(QPalette::Text);
    faint.setAlphaF(0.6F);
    painter.setPen(faint);
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap,
                     m_placeholder);
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
    ShowCellTip(*this, *static_cast<QHelpEvent*>(event));
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
    setColumnWidth(last, qMax(m_widths.back(), left));
}

void ListWidget::NotifyChanged(QTreeWidgetItem* item, int column)
{
    if (item)
        Notify(LVN_ITEMCHANGED, indexOfTopLevelItem(item), column);
}

void ListWidget::Notify(UINT code, int row, int column)
{
    if (m_bQuiet)
        return;
    NMLISTVIEW notification;
    notification.hdr.code = code;
    notification.iItem = row;
    notification.iSubItem = column;
    m_record->NotifyParent(notification.hdr);
}

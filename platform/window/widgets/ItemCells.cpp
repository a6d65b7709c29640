#include "platform/window/widgets/ItemCells_p.h"

#include "platform/window/QtText_p.h"

#include <QAbstractItemView>
#include <QHelpEvent>

QString CellText(std::string_view bytes)
{
    constexpr qsizetype kLongest = 2000;
    constexpr std::size_t kMostBytes = 4; // of a character; one that is cut lies behind the longest text
    return ToolkitText(bytes.substr(0, kLongest * kMostBytes)).left(kLongest);
}

void ShowCellTip(QAbstractItemView& view, const QHelpEvent& event)
{
    const QModelIndex cell = view.indexAt(event.pos());
    const QRect room = view.visualRect(cell);
    const bool cut = cell.isValid() &&
                     (view.sizeHintForIndex(cell).width() > room.width() || !view.viewport()->rect().contains(room));
    ShowToolTip(event, cut ? cell.data().toString() : QString(), view.viewport());
}

QString CellDelegate::displayText(const QVariant& value, const QLocale&) const
{
    return OneLine(value.toString());
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, m_nRoom);
}

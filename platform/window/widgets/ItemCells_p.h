// What the cells of lists and the nodes of trees have in common: texts of anybody's making, of any length.
#pragma once

#include <QStyledItemDelegate>

#include <string_view>

class QAbstractItemView;
class QHelpEvent;

// The beginning of a text, as much as a tool tip shows. Made when it is shown, so it costs nothing to hold megabytes.
QString CellText(std::string_view bytes);

// The text as a tool tip if the cell under the pointer does not show all of it.
void ShowCellTip(QAbstractItemView& view, const QHelpEvent& event);

// One line for each cell, with `room` pixels to spare.
class CellDelegate : public QStyledItemDelegate
{
public:
    CellDelegate(int room, QObject* parent) : QStyledItemDelegate(parent), m_nRoom(room)
    {}

    QString displayText(const QVariant& value, const QLocale& locale) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int m_nRoom;
};

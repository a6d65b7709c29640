#include "platform/window/widgets/ListRow_p.h"

#include "platform/window/widgets/ItemCells_p.h"
#include "platform/window/widgets/ListWidget_p.h"

ListRow::ListRow(int image) : m_nImage(image)
{
    setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren);
}

const std::string& ListRow::Text(int column) const
{
    static const std::string none;
    const auto index = static_cast<std::size_t>(column);
    return index < m_cells.size() ? m_cells[index] : none;
}

bool ListRow::SetText(int column, const std::string& text)
{
    if (Text(column) == text)
        return false;
    const auto index = static_cast<std::size_t>(column);
    if (index >= m_cells.size())
        m_cells.resize(index + 1);
    m_cells[index] = text;
    return true;
}

void ListRow::InsertCell(int column)
{
    if (column < std::ssize(m_cells))
        m_cells.emplace(m_cells.begin() + column);
}

void ListRow::RemoveCell(int column)
{
    if (column < std::ssize(m_cells))
        m_cells.erase(m_cells.begin() + column);
}

QVariant ListRow::data(int column, int role) const
{
    if (role == Qt::DisplayRole)
        return CellText(Text(column));
    if (role == Qt::DecorationRole && column == 0 && m_nImage >= 0)
        return static_cast<const ListWidget*>(treeWidget())->Icon(m_nImage);
    return QTreeWidgetItem::data(column, role);
}

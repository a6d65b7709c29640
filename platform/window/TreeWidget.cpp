#include "platform/window/TreeWidget_p.h"

#include "platform/window/ItemCells_p.h"
#include "platform/window/WindowRecord_p.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QSignalBlocker>

QVariant TreeNode::data(int column, int role) const
{
    if (role == Qt::DisplayRole)
        return CellText(m_text);
    if (role == Qt::DecorationRole && m_nImage >= 0)
        return static_cast<const TreeWidget*>(treeWidget())->Icon(m_nImage);
    return QTreeWidgetItem::data(column, role);
}

TreeWidget::TreeWidget(QWidget* parent) : QTreeWidget(parent)
{
    setColumnCount(1);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle); // addresses of one site begin alike
    setItemDelegate(new CellDelegate(0, this));
    connect(this, &QTreeWidget::itemSelectionChanged, this, [this] { NotifySelected(); });
}

void TreeWidget::ShowText(const QString& text)
{
    if (!text.isEmpty())
        setAccessibleName(text);
}

void TreeWidget::SetImages(std::shared_ptr<const CImageList::Images> images)
{
    m_images = std::move(images);
    if (m_images)
        setIconSize(QSize(m_images->width, m_images->width));
    viewport()->update();
}

TreeNode* TreeWidget::AddNode(const std::string& text, int image, TreeNode* parent)
{
    auto* node = new TreeNode(text, image);
    (parent ? parent : invisibleRootItem())->addChild(node);
    return node;
}

// The toolkit goes through all expanded nodes whenever one is added.
void TreeWidget::ExpandSoon(TreeNode& node)
{
    m_toExpand.push_back(&node);
    scheduleDelayedItemsLayout();
}

void TreeWidget::doItemsLayout()
{
    if (!m_toExpand.empty())
    {
        // Else each expansion would lay out the nodes below it.
        scheduleDelayedItemsLayout();
        for (TreeNode* node : std::exchange(m_toExpand, {}))
            node->setExpanded(true);
    }
    QTreeWidget::doItemsLayout();
}

TreeNode* TreeWidget::SelectedNode() const
{
    const auto selected = selectedItems();
    return selected.isEmpty() ? nullptr : static_cast<TreeNode*>(selected.front());
}

void TreeWidget::RemoveNodes()
{
    const QSignalBlocker blocker(this);
    m_toExpand.clear();
    clear();
}

// A click with Ctrl does not leave the tree without a selected node.
QItemSelectionModel::SelectionFlags TreeWidget::selectionCommand(const QModelIndex& index, const QEvent* event) const
{
    const auto command = QTreeWidget::selectionCommand(index, event);
    return command & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle)
               ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
               : command;
}

bool TreeWidget::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeWidget::viewportEvent(event);
    ShowCellTip(*this, *static_cast<QHelpEvent*>(event));
    return true;
}

void TreeWidget::NotifySelected()
{
    TreeNode* node = SelectedNode();
    if (!node)
        return;
    NMTREEVIEW notification;
    notification.hdr.code = TVN_SELCHANGED;
    notification.hItem = {node};
    notification.lParam = node->m_data;
    m_record->NotifyParent(notification.hdr);
}

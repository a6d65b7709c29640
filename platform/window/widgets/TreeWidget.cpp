#include "platform/window/widgets/TreeWidget_p.h"

#include "platform/window/WindowRecord_p.h"
#include "platform/window/widgets/ItemCells_p.h"

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

void TreeNode::SetImage(int image)
{
    m_nImage = image;
    emitDataChanged();
}

TreeNode* TreeNode::Sibling(int by) const
{
    auto* self = const_cast<TreeNode*>(this);
    const QTreeWidgetItem* above = QTreeWidgetItem::parent();
    if (!above && treeWidget())
        above = treeWidget()->invisibleRootItem();
    return above ? static_cast<TreeNode*>(above->child(above->indexOfChild(self) + by)) : nullptr;
}

void GuardedSelection::setCurrentIndex(const QModelIndex& index, SelectionFlags command)
{
    const QPersistentModelIndex to(index);
    if ((command & Select) && !Allows(index))
        return;
    m_allowed = to;
    QItemSelectionModel::setCurrentIndex(to, command);
    m_allowed = QModelIndex();
}

void GuardedSelection::select(const QItemSelection& selection, SelectionFlags command)
{
    const auto indexes = selection.indexes();
    const QPersistentModelIndex to(indexes.isEmpty() ? QModelIndex() : indexes.front());
    if ((command & Select) && to.isValid() && to != m_allowed)
    {
        const bool allowed = Allows(to);
        const auto selected = selectedIndexes();
        // A click has made it the current node already.
        if (!allowed)
            QItemSelectionModel::setCurrentIndex(selected.isEmpty() ? QModelIndex() : selected.front(), NoUpdate);
        if (!allowed || !to.isValid())
            return;
        QItemSelectionModel::select(QItemSelection(to, to), command);
        return;
    }
    QItemSelectionModel::select(selection, command);
}

bool GuardedSelection::Allows(const QModelIndex& index)
{
    const QPersistentModelIndex to(index);
    if (!to.isValid() || isSelected(to))
        return true;
    if (to == m_refused)
        return false;
    const bool allowed = m_mayGoTo(to);
    if (!allowed && m_bKey)
        m_refused = to;
    return allowed && to.isValid();
}

void GuardedSelection::BeginKey()
{
    m_bKey = true;
}

void GuardedSelection::EndKey()
{
    m_bKey = false;
    m_refused = QModelIndex();
}

TreeWidget::TreeWidget(QWidget* parent)
    : QTreeWidget(parent),
      m_selection(new GuardedSelection(model(), this, [this](const QModelIndex& to) { return MaySelect(to); }))
{
    setColumnCount(1);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle); // addresses of one site begin alike
    setItemDelegate(new CellDelegate(0, this));
    setSelectionModel(m_selection);
    connect(m_selection, &QItemSelectionModel::selectionChanged, this, [this] { NotifySelected(); });
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

void TreeWidget::RemoveNode(TreeNode& node)
{
    std::erase_if(m_toExpand, [&node](const QTreeWidgetItem* below) {
        while (below && below != &node)
            below = below->parent();
        return below != nullptr;
    });
    delete &node;
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
    // A click beside all nodes changes nothing.
    if (!index.isValid())
        return QItemSelectionModel::NoUpdate;
    const auto command = QTreeWidget::selectionCommand(index, event);
    return command & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle)
               ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
               : command;
}

void TreeWidget::keyPressEvent(QKeyEvent* event)
{
    m_selection->BeginKey();
    QTreeWidget::keyPressEvent(event);
    m_selection->EndKey();
}

bool TreeWidget::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeWidget::viewportEvent(event);
    ShowCellTip(*this, *static_cast<QHelpEvent*>(event));
    return true;
}

bool TreeWidget::MaySelect(const QModelIndex& index)
{
    auto* node = static_cast<TreeNode*>(itemFromIndex(index));
    return !node || Notify(TVN_SELCHANGING, *node) == 0;
}

void TreeWidget::NotifySelected()
{
    if (TreeNode* node = SelectedNode())
        Notify(TVN_SELCHANGED, *node);
}

LRESULT TreeWidget::Notify(UINT code, TreeNode& node)
{
    NMTREEVIEW notification;
    notification.hdr.code = code;
    notification.hItem = {&node};
    notification.lParam = node.m_data;
    return m_record->NotifyParent(notification.hdr);
}

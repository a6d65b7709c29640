// The widget of a tree.
#pragma once

#include "platform/window/ImageList_p.h"
#include "platform/window/TreeCtrl.h"
#include "platform/window/WindowPeer_p.h"

#include <QTreeWidget>

#include <functional>
#include <string>
#include <vector>

// Holds the node's bytes, from which the toolkit's text is made when it is shown.
class TreeNode : public QTreeWidgetItem
{
public:
    // The image is that of TreeWidget::Icon.
    TreeNode(const std::string& text, int image) : m_text(text), m_nImage(image)
    {}

    static TreeNode* Of(HTREEITEM item)
    {
        return static_cast<TreeNode*>(item.node);
    }
    const std::string& Text() const
    {
        return m_text;
    }
    int Image() const
    {
        return m_nImage;
    }
    void SetImage(int image);
    // So many places behind it under the same parent; null if there is none.
    TreeNode* Sibling(int by) const;
    QVariant data(int column, int role) const override;

    DWORD_PTR m_data = 0;

private:
    const std::string m_text;
    int m_nImage;
};

// A selection of one row that asks before it goes to another one, by mouse, keys and program alike.
class GuardedSelection : public QItemSelectionModel
{
public:
    using MayGoTo = std::function<bool(const QModelIndex& to)>;

    GuardedSelection(QAbstractItemModel* model, QObject* parent, MayGoTo mayGoTo)
        : QItemSelectionModel(model, parent), m_mayGoTo(std::move(mayGoTo))
    {}

    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override;
    using QItemSelectionModel::select;
    void select(const QItemSelection& selection, SelectionFlags command) override;
    // For one key, for which the toolkit tries twice: what was refused is not asked for again.
    void BeginKey();
    void EndKey();

private:
    bool Allows(const QModelIndex& index);

    const MayGoTo m_mayGoTo;
    QPersistentModelIndex m_allowed; // asked for already
    QPersistentModelIndex m_refused; // by the key in hand
    bool m_bKey = false;
};

class TreeWidget : public QTreeWidget, public WindowPeer
{
public:
    explicit TreeWidget(QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    // A name for assistive technology: it shows no text of its own.
    void ShowText(const QString& text) override;

    void SetImages(std::shared_ptr<const CImageList::Images> images);
    QIcon Icon(int image) const
    {
        return m_images ? m_images->Icon(image) : QIcon();
    }
    TreeNode* AddNode(const std::string& text, int image, TreeNode* parent);
    // Done before the next layout, so that nodes which are added meanwhile cost nothing more for it.
    void ExpandSoon(TreeNode& node);
    TreeNode* SelectedNode() const;
    void RemoveNode(TreeNode& node);
    void RemoveNodes();

    void doItemsLayout() override;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    bool MaySelect(const QModelIndex& index);
    void NotifySelected();
    LRESULT Notify(UINT code, TreeNode& node);

    std::shared_ptr<const CImageList::Images> m_images; // null for none
    std::vector<TreeNode*> m_toExpand;
    GuardedSelection* m_selection; // the toolkit's
};

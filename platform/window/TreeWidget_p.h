// The widget of a tree.
#pragma once

#include "platform/window/ImageList_p.h"
#include "platform/window/TreeCtrl.h"
#include "platform/window/WindowPeer_p.h"

#include <QTreeWidget>

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
    QVariant data(int column, int role) const override;

    DWORD_PTR m_data = 0;

private:
    const std::string m_text;
    const int m_nImage;
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
    void RemoveNodes();

    void doItemsLayout() override;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    bool viewportEvent(QEvent* event) override;

private:
    void NotifySelected();

    std::shared_ptr<const CImageList::Images> m_images; // null for none
    std::vector<TreeNode*> m_toExpand;
};

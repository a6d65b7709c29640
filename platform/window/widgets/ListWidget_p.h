// The widget of a report list.
#pragma once

#include "platform/window/ImageList_p.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/widgets/ListRow_p.h"

class ListWidget : public QTreeWidget, public WindowPeer
{
public:
    explicit ListWidget(QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    // A name for assistive technology: it shows no text of its own.
    void ShowText(const QString& text) override;

    DWORD Style() const
    {
        return m_style;
    }
    void SetStyle(DWORD style);
    // Has Enter tell of a double click; in a dialog it presses a button.
    void EnableEnter()
    {
        m_bEnter = true;
    }
    void SetImages(std::shared_ptr<const CImageList::Images> images);
    QIcon Icon(int image) const
    {
        return m_images ? m_images->Icon(image) : QIcon();
    }
    void SetPlaceholder(const QString& text);
    void SetRedraw(bool redraw);
    int AddColumn(int column, const QString& caption, int width);
    bool RemoveColumn(int column);
    int AddRow(int row, const std::string& text, int image);
    int FirstSelectedRow() const;
    bool SetCell(int row, int column, const std::string& text);
    std::string Cell(int row, int column) const;
    void RemoveRows();
    bool IsTicked(int row) const;
    bool Tick(int row, bool tick);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    bool HasTicks() const;
    ListRow* Row(int row) const;
    void PrepareTick(QTreeWidgetItem& item) const;
    QStringList Captions() const;
    void ShowColumns(const QStringList& captions);
    void FitLastColumn();
    void NotifyChanged(QTreeWidgetItem* item, int column);
    void Notify(UINT code, int row, int column);

    DWORD m_style = 0;
    QString m_placeholder;
    bool m_bEnter = false;
    bool m_bQuiet = false;     // nothing is told
    std::vector<int> m_widths; // of the columns, as asked for; the last one also gets what is left
    std::shared_ptr<const CImageList::Images> m_images; // null for none
};

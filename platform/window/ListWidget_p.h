// The widget of a report list.
#pragma once

#include "platform/window/WindowPeer_p.h"

#include <QTreeWidget>

#include <string>

class ListWidget : public QTreeWidget, public WindowPeer
{
public:
    explicit ListWidget(QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString&) override
    {}

    DWORD Style() const
    {
        return m_style;
    }
    void SetStyle(DWORD style);
    int AddColumn(int column, const QString& caption, int width);
    int AddRow(int row, const std::string& text);
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
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    bool HasTicks() const;
    QTreeWidgetItem* Row(int row) const;
    void PrepareTick(QTreeWidgetItem& item) const;
    void FitLastColumn();
    void ShowCellTip(const QHelpEvent& event);
    void NotifyChanged(QTreeWidgetItem* item, int column);
    void Notify(UINT code, int row, int column);

    DWORD m_style = 0;
    int m_lastColumnWidth = 0; // as asked for; what is left of the control is added
};

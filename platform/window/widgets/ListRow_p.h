// A row of a report list: the bytes of its cells, from which the toolkit's texts are made when they are shown.
#pragma once

#include <QIcon>
#include <QTreeWidget>

#include <string>
#include <vector>

class ListRow : public QTreeWidgetItem
{
public:
    // The image is that of ListWidget::Icon.
    explicit ListRow(int image);

    const std::string& Text(int column) const;
    // False if it is the text that stands there.
    bool SetText(int column, const std::string& text);
    void InsertCell(int column);
    void RemoveCell(int column);
    // The cells show what they hold now.
    void Refresh()
    {
        emitDataChanged();
    }

    QVariant data(int column, int role) const override;

private:
    int m_nImage;
    std::vector<std::string> m_cells; // as many as were set
};

// The widget of a list box.
#pragma once

#include "platform/window/QtText_p.h"
#include "platform/window/WindowPeer_p.h"

#include <QListWidget>

class ListBoxWidget : public QListWidget, public WindowPeer
{
public:
    // Holds the row's bytes beside the toolkit's text.
    struct Row : QListWidgetItem
    {
        explicit Row(const std::string& text) : QListWidgetItem(OneLine(ToolkitText(text))), m_text(text)
        {}

        const std::string m_text;
        DWORD_PTR m_data = 0;
    };

    explicit ListBoxWidget(QWidget* parent) : QListWidget(parent)
    {
        setSelectionMode(ExtendedSelection);
        setUniformItemSizes(true);
    }

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString&) override
    {}
    // Null for a row that is not there.
    Row* At(int row) const
    {
        return static_cast<Row*>(item(row));
    }
};

// The widget of a tab control.
#pragma once

#include "platform/window/ImageList.h"
#include "platform/window/WindowPeer_p.h"

#include <QTabWidget>

#include <string>
#include <vector>

class TabWidget : public QTabWidget, public WindowPeer
{
public:
    explicit TabWidget(QWidget* parent);

    QWidget& Widget() override
    {
        return *this;
    }
    // A name for assistive technology: it shows no text of its own.
    void ShowText(const QString& text) override;

    int AddTab(int place, const std::string& text, int image);
    bool RemoveTab(int tab);
    std::string Text(int tab) const;
    int Image(int tab) const;
    // Without telling the parent.
    void Select(int tab);
    void SetImages(const CImageList& images);
    const CImageList& Images() const
    {
        return m_images;
    }
    QRect TabArea(int tab) const;
    // What stands around the display area.
    QMargins Border() const;

private:
    struct Tab
    {
        std::string text;
        int image;
    };

    bool Has(int tab) const
    {
        return static_cast<std::size_t>(tab) < m_tabs.size();
    }
    QIcon Icon(int image) const;

    std::vector<Tab> m_tabs;
    CImageList m_images;
};

#include "platform/window/widgets/TabWidget_p.h"

#include "platform/window/ImageList_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/TabCtrl.h"
#include "platform/window/WindowRecord_p.h"

#include <QSignalBlocker>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>

TabWidget::TabWidget(QWidget* parent) : QTabWidget(parent)
{
    connect(this, &QTabWidget::currentChanged, this, [this] {
        NMHDR head;
        head.code = TCN_SELCHANGE;
        m_record->NotifyParent(head);
    });
}

void TabWidget::ShowText(const QString& text)
{
    if (!text.isEmpty())
        setAccessibleName(text);
}

int TabWidget::AddTab(int place, const std::string& text, int image)
{
    const QSignalBlocker blocker(this);
    const int tab = insertTab(place, new QWidget, Icon(image), OneLine(ToolkitText(text)));
    m_tabs.insert(m_tabs.begin() + tab, {text, image});
    return tab;
}

bool TabWidget::RemoveTab(int tab)
{
    if (!Has(tab))
        return false;
    const QSignalBlocker blocker(this);
    const std::unique_ptr<QWidget> content(widget(tab));
    removeTab(tab);
    m_tabs.erase(m_tabs.begin() + tab);
    return true;
}

std::string TabWidget::Text(int tab) const
{
    return Has(tab) ? m_tabs[static_cast<std::size_t>(tab)].text : std::string();
}

int TabWidget::Image(int tab) const
{
    return Has(tab) ? m_tabs[static_cast<std::size_t>(tab)].image : -1;
}

void TabWidget::Select(int tab)
{
    const QSignalBlocker blocker(this);
    setCurrentIndex(tab);
}

void TabWidget::SetImages(const CImageList& images)
{
    m_images = images;
    if (const int width = images.GetImageWidth())
        setIconSize(QSize(width, width));
    for (int tab = 0; tab < count(); ++tab)
        setTabIcon(tab, Icon(Image(tab)));
}

QIcon TabWidget::Icon(int image) const
{
    return m_images.Shared() ? m_images.Shared()->Icon(image) : QIcon();
}

QRect TabWidget::TabArea(int tab) const
{
    // The toolkit lays out no row that is not on show, but knows its size at any time.
    const QRect area = tabBar()->tabRect(tab);
    return {tabBar()->mapTo(this, area.topLeft()), QSize(area.width(), tabBar()->sizeHint().height())};
}

QMargins TabWidget::Border() const
{
    QStyleOptionTabWidgetFrame option;
    initStyleOption(&option);
    option.rect = QRect(0, 0, 1000, 1000);
    const QRect inside = style()->subElementRect(QStyle::SE_TabWidgetTabContents, &option, this);
    return {inside.left(), inside.top(), option.rect.right() - inside.right(), option.rect.bottom() - inside.bottom()};
}

#include "platform/window/MenuPopup_p.h"

#include "platform/window/QtText_p.h"

#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace
{

QString EntryText(const std::string& text)
{
    QString entry = ToolkitText(text);
    // A tab without a shortcut behind it.
    if (entry.endsWith(u'\t'))
        entry.chop(1);
    return entry;
}

// A popup or a menu bar.
template <class Menu>
void Fill(Menu& popup, const CMenu& menu)
{
    for (const CMenu::Item& item : menu.Items())
    {
        QAction* action = nullptr;
        if (item.subMenu)
        {
            QMenu* subMenu = popup.addMenu(EntryText(item.text));
            Fill(*subMenu, *item.subMenu);
            action = subMenu->menuAction();
        }
        else
        {
            action = item.text.empty() ? popup.addSeparator() : popup.addAction(EntryText(item.text));
        }
        action->setEnabled(item.enabled);
        action->setData(item.id);
    }
}

} // namespace

void FillMenuBar(QMenuBar& bar, const CMenu& menu)
{
    Fill(bar, menu);
}

UINT RunPopupMenu(const CMenu& menu, const QPoint& globalPosition, QWidget* parent)
{
    const QPointer<QMenu> popup = new QMenu(parent);
    Fill(*popup, menu);
    const QAction* chosen = popup->exec(globalPosition);
    const UINT command = popup && chosen ? chosen->data().toUInt() : 0;
    if (popup)
        popup->deleteLater();
    return command;
}

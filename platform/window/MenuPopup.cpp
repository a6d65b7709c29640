#include "platform/window/MenuPopup_p.h"

#include "platform/window/Menu.h"
#include "platform/window/MenuTable_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/widgets/MenuWidget_p.h"

#include <QMenuBar>
#include <QPointer>

namespace
{

QString EntryText(const std::string& text, bool ownerDrawn)
{
    QString entry = ToolkitText(text);
    // What the owner draws has the shortcut within its own width.
    if (ownerDrawn)
        return entry.section(u'\t', 0, 0);
    // A tab without a shortcut behind it.
    if (entry.endsWith(u'\t'))
        entry.chop(1);
    return entry;
}

// Fills a popup or a menu bar.
class Filler
{
public:
    explicit Filler(HWND owner) : m_owner(owner)
    {}

    template <class Menu>
    void Fill(Menu& popup, HMENU menu) const
    {
        // The entries are copied: whoever is asked for a name may change the menu.
        const MenuRecord* const record = MenuTable::Get().Find(menu);
        const std::vector<MenuItem> items = record ? record->items : std::vector<MenuItem>();
        for (std::size_t i = 0; i < items.size(); ++i)
        {
            QAction* const action = AddEntry(popup, menu, items[i], static_cast<int>(i));
            action->setEnabled(items[i].IsEnabled());
            action->setCheckable(items[i].flags & MF_CHECKED);
            action->setChecked(items[i].flags & MF_CHECKED);
            action->setData(items[i].id);
        }
    }

private:
    template <class Menu>
    QAction* AddEntry(Menu& popup, HMENU menu, const MenuItem& item, int position) const
    {
        const bool ownerDrawn = item.flags & MF_OWNERDRAW;
        QAction* action = nullptr;
        if (item.flags & MF_SEPARATOR)
        {
            action = popup.addSeparator();
        }
        else
        {
            const CMenu* const object = CMenu::FromHandle(menu);
            const QString name = EntryText(object ? object->EntryName(position) : item.text, ownerDrawn);
            action = item.flags & MF_POPUP ? AddPopup(popup, item.popup, name) : popup.addAction(name);
        }
        if constexpr (std::is_same_v<Menu, MenuWidget>)
        {
            if (ownerDrawn)
                popup.SetOwnerDrawn(*action, item);
        }
        return action;
    }

    template <class Menu>
    QAction* AddPopup(Menu& popup, HMENU menu, const QString& name) const
    {
        auto* const below = new MenuWidget(menu, m_owner, &popup);
        below->setTitle(name);
        Fill(*below, menu);
        return popup.addMenu(below);
    }

    HWND m_owner;
};

} // namespace

void FillMenuBar(QMenuBar& bar, HMENU menu)
{
    Filler({}).Fill(bar, menu);
}

UINT RunPopupMenu(HMENU menu, const QPoint& globalPosition, WindowRecord& owner)
{
    const QPointer<MenuWidget> popup = new MenuWidget(menu, owner.Handle(), &owner.Peer()->Widget());
    Filler(owner.Handle()).Fill(*popup, menu);
    const QAction* chosen = popup->exec(globalPosition);
    const UINT command = popup && chosen ? chosen->data().toUInt() : 0;
    if (popup)
        popup->deleteLater();
    return command;
}

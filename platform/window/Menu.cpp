#include "platform/window/Menu.h"

#include "platform/text/CodePage.h"
#include "platform/window/Calls.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/MenuPopup_p.h"
#include "platform/window/Resource.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/Wnd.h"

#include <QPoint>

#include <algorithm>

namespace
{

const MenuTemplate* FindTemplate(UINT id)
{
    const ResourceTable* resources = AfxGetResources();
    if (!resources)
        return nullptr;
    const auto menu = std::find_if(resources->menus.begin(), resources->menus.end(),
                                   [id](const MenuTemplate& m) { return m.id == static_cast<int>(id); });
    return menu == resources->menus.end() ? nullptr : &*menu;
}

// The entry that a position or a command names; `items.end()` if there is none.
auto FindItem(std::vector<CMenu::Item>& items, UINT position, UINT flags)
{
    if (flags & MF_BYPOSITION)
        return items.begin() + std::min<std::ptrdiff_t>(position, std::ssize(items));
    return std::find_if(items.begin(), items.end(), [position](const CMenu::Item& item) {
        return item.id == position && !item.subMenu && !item.text.empty();
    });
}

} // namespace

BOOL CMenu::LoadMenu(UINT id)
{
    const MenuTemplate* menu = FindTemplate(id);
    if (!menu)
        return FALSE;
    m_items.clear();
    std::vector<CMenu*> path{this};
    for (const MenuEntry& entry : menu->entries)
    {
        const auto depth = static_cast<std::size_t>(entry.depth);
        if (depth < path.size())
        {
            path.resize(depth + 1);
        }
        else if (!path.back()->m_items.empty())
        {
            Item& head = path.back()->m_items.back();
            head.subMenu = std::make_unique<CMenu>();
            path.push_back(head.subMenu.get());
        }
        path.back()->m_items.push_back({entry.id, Utf8ToAnsi(entry.text), true, nullptr});
    }
    return TRUE;
}

CMenu* CMenu::GetSubMenu(int position) const
{
    if (position < 0 || position >= GetMenuItemCount())
        return nullptr;
    return m_items[static_cast<std::size_t>(position)].subMenu.get();
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR id, const std::string& text)
{
    Item item;
    if (!(flags & MF_SEPARATOR))
        item = {static_cast<UINT>(id), text, !(flags & MF_GRAYED), nullptr};
    m_items.push_back(std::move(item));
    return TRUE;
}

int CMenu::EnableMenuItem(UINT id, UINT flags)
{
    const auto item = FindItem(m_items, id, flags);
    if (item != m_items.end())
    {
        const bool wasEnabled = std::exchange(item->enabled, !(flags & MF_GRAYED));
        return static_cast<int>(wasEnabled ? MF_ENABLED : MF_GRAYED);
    }
    int before = -1;
    for (const Item& head : m_items)
    {
        if (head.subMenu && before < 0)
            before = head.subMenu->EnableMenuItem(id, flags);
    }
    return before;
}

BOOL CMenu::RemoveMenu(UINT position, UINT flags)
{
    const auto item = FindItem(m_items, position, flags);
    if (item == m_items.end())
        return FALSE;
    m_items.erase(item);
    return TRUE;
}

int CMenu::GetMenuItemCount() const
{
    return static_cast<int>(m_items.size());
}

BOOL CMenu::TrackPopupMenu(UINT, int x, int y, CWnd* owner)
{
    const HWND window = owner ? owner->m_hWnd : HWND();
    const auto record = WindowTable::Get().Find(window);
    if (!record || !IsDesktopThread())
        return FALSE;
    const UINT command = RunPopupMenu(*this, QPoint(x, y), &record->Peer()->Widget());
    if (command)
        SendMessageA(window, WM_COMMAND, command, 0);
    return command != 0;
}

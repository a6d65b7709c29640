#include "platform/window/MenuCalls.h"

#include "platform/window/Menu.h"
#include "platform/window/MenuTable_p.h"

#include <algorithm>
#include <utility>

namespace
{

// What an entry keeps of the flags that it is made with.
constexpr UINT kKeptFlags = MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_POPUP | MF_OWNERDRAW | MF_SEPARATOR;

struct Place
{
    MenuRecord* menu = nullptr;
    std::size_t position = 0;

    MenuItem* Item() const
    {
        return menu && position < menu->items.size() ? &menu->items[position] : nullptr;
    }
};

Place FindCommand(HMENU handle, UINT command)
{
    MenuRecord* const menu = MenuTable::Get().Find(handle);
    if (!menu)
        return {};
    for (std::size_t position = 0; position < menu->items.size(); ++position)
    {
        const MenuItem& item = menu->items[position];
        if (item.IsCommand() && item.id == command)
            return {menu, position};
        if (const Place below = FindCommand(item.popup, command); below.menu)
            return below;
    }
    return {};
}

Place FindPlace(HMENU menu, UINT position, UINT flags)
{
    if (flags & MF_BYPOSITION)
        return {MenuTable::Get().Find(menu), position};
    return FindCommand(menu, position);
}

bool Holds(HMENU menu, HMENU other)
{
    if (menu == other)
        return true;
    const MenuRecord* const record = MenuTable::Get().Find(menu);
    return record &&
           std::ranges::any_of(record->items, [other](const MenuItem& item) { return Holds(item.popup, other); });
}

MenuItem MakeItem(UINT flags, UINT_PTR id, const char* item)
{
    MenuItem made;
    made.flags = flags & kKeptFlags;
    if (flags & MF_POPUP)
        made.popup = {id};
    else if (!(flags & MF_SEPARATOR))
        made.id = static_cast<UINT>(id);
    if (flags & MF_OWNERDRAW)
        made.data = reinterpret_cast<DWORD_PTR>(item);
    else if (item && !(flags & MF_SEPARATOR))
        made.text = item;
    return made;
}

bool IsRefused(HMENU menu, UINT flags, UINT_PTR id)
{
    return (flags & MF_POPUP) && (!IsMenu({id}) || Holds({id}, menu));
}

// Replaces the bits of `mask` by those of `flags`, and gives what they were.
int ChangeState(MenuItem* item, UINT mask, UINT flags)
{
    if (!item)
        return -1;
    const UINT before = item->flags & mask;
    item->flags = (item->flags & ~mask) | (flags & mask);
    return static_cast<int>(before);
}

} // namespace

MenuTable& MenuTable::Get()
{
    // Menus of static objects outlive what is destroyed at the program's end.
    static MenuTable& table = *new MenuTable;
    return table;
}

HMENU MenuTable::Add()
{
    m_menus.emplace(++m_last, std::make_unique<MenuRecord>());
    return {m_last};
}

MenuRecord* MenuTable::Find(HMENU menu) const
{
    const auto found = m_menus.find(menu.value);
    return found == m_menus.end() ? nullptr : found->second.get();
}

std::unique_ptr<MenuRecord> MenuTable::Take(HMENU menu)
{
    auto node = m_menus.extract(menu.value);
    return node ? std::move(node.mapped()) : nullptr;
}

HMENU CreatePopupMenu()
{
    return MenuTable::Get().Add();
}

BOOL DestroyMenu(HMENU menu)
{
    const auto record = MenuTable::Get().Take(menu);
    if (!record)
        return FALSE;
    for (CMenu* object : {record->object, record->temporary.get()})
    {
        if (object)
            object->m_hMenu = {};
    }
    for (const MenuItem& item : record->items)
        DestroyMenu(item.popup);
    return TRUE;
}

bool IsMenu(HMENU menu)
{
    return MenuTable::Get().Find(menu) != nullptr;
}

BOOL InsertMenuA(HMENU menu, UINT position, UINT flags, UINT_PTR id, const char* item)
{
    Place place = FindPlace(menu, position, flags);
    // What no entry is named by comes at the end.
    if (!place.menu)
        place = {MenuTable::Get().Find(menu), position};
    if (!place.menu || IsRefused(menu, flags, id))
        return FALSE;
    auto& items = place.menu->items;
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(std::min(place.position, items.size())),
                 MakeItem(flags, id, item));
    return TRUE;
}

BOOL ModifyMenuA(HMENU menu, UINT position, UINT flags, UINT_PTR id, const char* item)
{
    MenuItem* const old = FindPlace(menu, position, flags).Item();
    if (!old || IsRefused(menu, flags, id))
        return FALSE;
    const MenuItem before = std::exchange(*old, MakeItem(flags, id, item));
    if (before.popup != old->popup)
        DestroyMenu(before.popup);
    return TRUE;
}

BOOL RemoveMenu(HMENU menu, UINT position, UINT flags)
{
    const Place place = FindPlace(menu, position, flags);
    if (!place.Item())
        return FALSE;
    place.menu->items.erase(place.menu->items.begin() + static_cast<std::ptrdiff_t>(place.position));
    return TRUE;
}

BOOL DeleteMenu(HMENU menu, UINT position, UINT flags)
{
    const MenuItem* const item = FindPlace(menu, position, flags).Item();
    if (!item)
        return FALSE;
    const HMENU popup = item->popup;
    RemoveMenu(menu, position, flags);
    DestroyMenu(popup);
    return TRUE;
}

int EnableMenuItem(HMENU menu, UINT position, UINT flags)
{
    return ChangeState(FindPlace(menu, position, flags).Item(), MF_GRAYED | MF_DISABLED, flags);
}

int CheckMenuItem(HMENU menu, UINT position, UINT flags)
{
    return ChangeState(FindPlace(menu, position, flags).Item(), MF_CHECKED, flags);
}

int GetMenuItemCount(HMENU menu)
{
    const MenuRecord* const record = MenuTable::Get().Find(menu);
    return record ? static_cast<int>(record->items.size()) : -1;
}

UINT GetMenuItemID(HMENU menu, int position)
{
    const MenuItem* const item = FindPlace(menu, static_cast<UINT>(position), MF_BYPOSITION).Item();
    return item && !(item->flags & MF_POPUP) ? item->id : kNoMenuEntry;
}

UINT GetMenuState(HMENU menu, UINT position, UINT flags)
{
    constexpr UINT kLowByte = 0xFF;
    const MenuItem* const item = FindPlace(menu, position, flags).Item();
    if (!item)
        return kNoMenuEntry;
    if (!(item->flags & MF_POPUP))
        return item->flags;
    const int below = std::max(0, GetMenuItemCount(item->popup));
    return (item->flags & kLowByte) | (static_cast<UINT>(below) & kLowByte) << 8;
}

std::string GetMenuStringA(HMENU menu, UINT position, UINT flags)
{
    const MenuItem* const item = FindPlace(menu, position, flags).Item();
    return item ? item->text : std::string();
}

HMENU GetSubMenu(HMENU menu, int position)
{
    const MenuItem* const item = FindPlace(menu, static_cast<UINT>(position), MF_BYPOSITION).Item();
    return item ? item->popup : HMENU();
}

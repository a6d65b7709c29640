#include "platform/window/Menu.h"

#include "platform/text/CodePage.h"
#include "platform/window/Calls.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/MenuPopup_p.h"
#include "platform/window/MenuTable_p.h"
#include "platform/window/Resource.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/Wnd.h"

#include <QPoint>

#include <algorithm>
#include <utility>

namespace
{

const MenuTemplate* FindTemplate(UINT id)
{
    const ResourceTable* resources = AfxGetResources();
    if (!resources)
        return nullptr;
    const auto menu = std::ranges::find(resources->menus, static_cast<int>(id), &MenuTemplate::id);
    return menu == resources->menus.end() ? nullptr : &*menu;
}

// The last entry becomes the head of a popup.
HMENU MakeHead(MenuRecord& menu)
{
    MenuItem& head = menu.items.back();
    head.flags |= MF_POPUP;
    head.popup = CreatePopupMenu();
    return head.popup;
}

void LoadEntries(HMENU menu, const MenuTemplate& source)
{
    std::vector<HMENU> path{menu};
    for (const MenuEntry& entry : source.entries)
    {
        const auto depth = static_cast<std::size_t>(entry.depth);
        MenuRecord& above = *MenuTable::Get().Find(path.back());
        if (depth < path.size())
            path.resize(depth + 1);
        else if (!above.items.empty())
            path.push_back(MakeHead(above));
        const UINT kind = entry.text.empty() ? MF_SEPARATOR : MF_STRING;
        InsertMenuA(path.back(), kNoMenuEntry, MF_BYPOSITION | kind, entry.id, Utf8ToAnsi(entry.text).c_str());
    }
}

} // namespace

CMenu::~CMenu()
{
    const MenuRecord* const record = MenuTable::Get().Find(m_hMenu);
    if (record && record->object == this)
        DestroyMenu();
}

CMenu* CMenu::FromHandle(HMENU menu)
{
    MenuRecord* const record = MenuTable::Get().Find(menu);
    if (!record || record->object)
        return record ? record->object : nullptr;
    if (!record->temporary)
    {
        record->temporary = std::make_unique<CMenu>();
        record->temporary->m_hMenu = menu;
    }
    return record->temporary.get();
}

BOOL CMenu::Attach(HMENU menu)
{
    MenuRecord* const record = MenuTable::Get().Find(menu);
    if (!record || record->object || m_hMenu)
        return FALSE;
    record->object = this;
    m_hMenu = menu;
    return TRUE;
}

BOOL CMenu::AttachKept(HMENU menu, std::unique_ptr<CMenu> object)
{
    if (!object->Attach(menu))
        return FALSE;
    MenuTable::Get().Find(menu)->kept = std::move(object);
    return TRUE;
}

HMENU CMenu::Detach()
{
    if (MenuRecord* const record = MenuTable::Get().Find(m_hMenu); record && record->object == this)
        record->object = nullptr;
    return std::exchange(m_hMenu, {});
}

BOOL CMenu::CreatePopupMenu()
{
    return !m_hMenu && Attach(::CreatePopupMenu());
}

BOOL CMenu::DestroyMenu()
{
    return ::DestroyMenu(m_hMenu);
}

BOOL CMenu::LoadMenu(UINT id)
{
    const MenuTemplate* const source = FindTemplate(id);
    if (!source)
        return FALSE;
    DestroyMenu();
    CreatePopupMenu();
    LoadEntries(m_hMenu, *source);
    return TRUE;
}

CMenu* CMenu::GetSubMenu(int position) const
{
    return FromHandle(::GetSubMenu(m_hMenu, position));
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR id, const std::string& text)
{
    return InsertMenu(kNoMenuEntry, flags | MF_BYPOSITION, id, text);
}

BOOL CMenu::InsertMenu(UINT position, UINT flags, UINT_PTR id, const std::string& text)
{
    return InsertMenuA(m_hMenu, position, flags, id, text.c_str());
}

BOOL CMenu::ModifyMenu(UINT position, UINT flags, UINT_PTR id, const std::string& text)
{
    return ModifyMenuA(m_hMenu, position, flags, id, text.c_str());
}

BOOL CMenu::RemoveMenu(UINT position, UINT flags)
{
    return ::RemoveMenu(m_hMenu, position, flags);
}

BOOL CMenu::DeleteMenu(UINT position, UINT flags)
{
    return ::DeleteMenu(m_hMenu, position, flags);
}

int CMenu::EnableMenuItem(UINT position, UINT flags)
{
    return ::EnableMenuItem(m_hMenu, position, flags);
}

int CMenu::CheckMenuItem(UINT position, UINT flags)
{
    return ::CheckMenuItem(m_hMenu, position, flags);
}

int CMenu::GetMenuItemCount() const
{
    return ::GetMenuItemCount(m_hMenu);
}

UINT CMenu::GetMenuItemID(int position) const
{
    return ::GetMenuItemID(m_hMenu, position);
}

UINT CMenu::GetMenuState(UINT position, UINT flags) const
{
    return ::GetMenuState(m_hMenu, position, flags);
}

std::string CMenu::EntryName(int position) const
{
    return GetMenuStringA(m_hMenu, static_cast<UINT>(position), MF_BYPOSITION);
}

int CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner)
{
    const HWND window = owner ? owner->m_hWnd : HWND();
    const auto record = WindowTable::Get().Find(window);
    if (!record || !IsDesktopThread() || !m_hMenu)
        return FALSE;
    const UINT command = RunPopupMenu(m_hMenu, QPoint(x, y), *record);
    if (flags & TPM_RETURNCMD)
        return static_cast<int>(command);
    if (command)
        SendMessageA(window, WM_COMMAND, command, 0);
    return command != 0;
}

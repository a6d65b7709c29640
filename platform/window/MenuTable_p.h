// What stands behind the handles of menus. User-interface thread only.
#pragma once

#include "platform/window/MenuCalls.h"

#include <memory>
#include <unordered_map>
#include <vector>

class CMenu;

struct MenuItem
{
    UINT flags = 0;
    UINT id = 0;
    HMENU popup;
    std::string text;
    DWORD_PTR data = 0;

    bool IsCommand() const
    {
        return !(flags & (MF_POPUP | MF_SEPARATOR));
    }
    bool IsEnabled() const
    {
        return !(flags & (MF_GRAYED | MF_DISABLED));
    }
};

struct MenuRecord
{
    std::vector<MenuItem> items;
    CMenu* object = nullptr;          // attached; may be the kept one
    std::unique_ptr<CMenu> temporary; // what FromHandle gives while none is attached
    std::unique_ptr<CMenu> kept;      // lives as long as the menu
};

class MenuTable
{
public:
    static MenuTable& Get();

    HMENU Add();
    // Null for a menu that has gone.
    MenuRecord* Find(HMENU menu) const;
    // Its handle is dead from here on.
    std::unique_ptr<MenuRecord> Take(HMENU menu);

private:
    std::uint64_t m_last = 0;
    std::unordered_map<std::uint64_t, std::unique_ptr<MenuRecord>> m_menus;
};

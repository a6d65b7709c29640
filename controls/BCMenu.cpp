#include "controls/BCMenu.h"

#include "platform/text/CodePage.h"
#include "platform/text/Mbcs.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr UINT kLowByte = 0xFF;

// The menus under this class's care. Menus of static objects outlive what is destroyed at the program's end.
std::vector<HMENU>& g_menus = *new std::vector<HMENU>;

void Join(HMENU menu)
{
    std::erase_if(g_menus, [](HMENU other) { return !::IsMenu(other); });
    if (std::ranges::find(g_menus, menu) == g_menus.end())
        g_menus.push_back(menu);
}

} // namespace

void BCMenuItem::SetText(std::string_view text)
{
    const std::wstring wide = AnsiToWide(text);
    m_text = std::make_unique<wchar_t[]>(wide.size() + 1);
    std::ranges::copy(wide, m_text.get());
}

std::string BCMenuItem::Text() const
{
    return m_text ? WideToAnsi(m_text.get()) : std::string();
}

BCMenu::~BCMenu()
{
    // Nobody asks for records of a menu that goes.
    std::erase(g_menus, m_hMenu);
}

bool BCMenu::IsMenu(const CMenu* menu)
{
    return menu && IsMenu(menu->m_hMenu);
}

bool BCMenu::IsMenu(HMENU menu)
{
    return std::ranges::find(g_menus, menu) != g_menus.end() && ::IsMenu(menu);
}

BCMenu* BCMenu::FromMenu(HMENU menu)
{
    return IsMenu(menu) ? dynamic_cast<BCMenu*>(FromHandle(menu)) : nullptr;
}

BOOL BCMenu::LoadMenu(UINT id)
{
    if (!CMenu::LoadMenu(id))
        return FALSE;
    TakeCare();
    return TRUE;
}

void BCMenu::TakeCare()
{
    Synchronize();
    for (int position = 0; position < GetMenuItemCount(); ++position)
    {
        const HMENU popup = ::GetSubMenu(m_hMenu, position);
        AttachKept(popup, std::make_unique<BCMenu>());
        if (auto* const below = dynamic_cast<BCMenu*>(FromHandle(popup)))
            below->TakeCare();
    }
}

void BCMenu::Synchronize()
{
    if (!m_hMenu)
        return;
    Join(m_hMenu);
    for (const auto& item : m_items)
        item->m_nUsed = 0;
    std::vector<BCMenuItem*> order;
    const int count = GetMenuItemCount();
    for (int position = 0; position < count; ++position)
    {
        if (BCMenuItem* const item = PlaceEntry(static_cast<UINT>(position)))
            order.push_back(item);
    }
    std::erase_if(m_items, [](const auto& item) { return !item->m_nUsed; });
    // All that are left stand in `order`, each once.
    for (auto& item : m_items)
        static_cast<void>(item.release());
    for (std::size_t position = 0; position < order.size(); ++position)
        m_items[position].reset(order[position]);
}

BCMenuItem* BCMenu::PlaceEntry(UINT position)
{
    const UINT state = GetMenuState(position, MF_BYPOSITION);
    // Of the head of a popup the high byte counts entries, so the other kinds are asked for later.
    if (state & MF_POPUP)
        return PlacePopup(position, state);
    return state & MF_SEPARATOR ? PlaceSeparator(position, state) : PlaceCommand(position, state);
}

BCMenuItem* BCMenu::PlacePopup(UINT position, UINT state)
{
    const HMENU popup = ::GetSubMenu(m_hMenu, static_cast<int>(position));
    const std::string text = GetMenuStringA(m_hMenu, position, MF_BYPOSITION);
    BCMenuItem* const item = Place(popup.value);
    if (!item)
    {
        const UINT flags = state & kLowByte & ~MF_POPUP;
        return PlaceNew(position, flags | MF_BYPOSITION | MF_OWNERDRAW | MF_POPUP, popup.value, text);
    }
    if (!text.empty())
        item->SetText(text);
    return item;
}

BCMenuItem* BCMenu::PlaceSeparator(UINT position, UINT state)
{
    BCMenuItem* const item = Place(0);
    if (!item)
        return PlaceNew(position, state | MF_BYPOSITION | MF_OWNERDRAW | MF_SEPARATOR, 0, {});
    Apply(position, *item);
    return item;
}

BCMenuItem* BCMenu::PlaceCommand(UINT position, UINT state)
{
    const UINT id = GetMenuItemID(static_cast<int>(position));
    const UINT flags = state | MF_BYPOSITION | MF_OWNERDRAW;
    const std::string text = GetMenuStringA(m_hMenu, position, MF_BYPOSITION);
    BCMenuItem* const item = Place(id);
    if (!item)
        return PlaceNew(position, flags, id, text);
    item->m_nFlags = flags;
    if (!text.empty())
        item->SetText(text);
    Apply(position, *item);
    return item;
}

// A record with the id that has no place yet; it has one now.
BCMenuItem* BCMenu::Place(UINT_PTR id)
{
    const auto isFree = [id](const auto& item) { return !item->m_nUsed && item->m_nID == id; };
    const auto found = std::ranges::find_if(m_items, isFree);
    if (found == m_items.end())
        return nullptr;
    (*found)->m_nUsed = 1;
    return found->get();
}

BCMenuItem* BCMenu::PlaceNew(UINT position, UINT flags, UINT_PTR id, std::string_view text)
{
    m_items.push_back(MakeItem(position, flags, id, text));
    m_items.back()->m_nUsed = 1;
    return m_items.back().get();
}

void BCMenu::Apply(UINT position, const BCMenuItem& item) const
{
    const bool ownerDrawn = item.m_nFlags & MF_OWNERDRAW;
    ModifyMenuA(m_hMenu, position, item.m_nFlags | MF_BYPOSITION, item.m_nID,
                ownerDrawn ? reinterpret_cast<const char*>(&item) : nullptr);
}

BCMenuItem* BCMenu::ModifyItem(UINT position, UINT flags, UINT_PTR id, std::string_view text)
{
    if (GetMenuItemCount() != static_cast<int>(m_items.size()))
        Synchronize();
    if (position >= m_items.size())
        return nullptr;
    m_items[position] = MakeItem(position, flags, id, text);
    return m_items[position].get();
}

std::unique_ptr<BCMenuItem> BCMenu::MakeItem(UINT position, UINT flags, UINT_PTR id, std::string_view text) const
{
    auto item = std::make_unique<BCMenuItem>();
    item->SetText(text);
    item->m_nFlags = flags;
    item->m_nID = id;
    Apply(position, *item);
    return item;
}

CMenu* BCMenu::FindItem(UINT id, int& position)
{
    struct Search
    {
        UINT id;
        int& position;

        CMenu* In(CMenu& menu) const
        {
            for (int i = 0; i < menu.GetMenuItemCount(); ++i)
            {
                CMenu* const popup = menu.GetSubMenu(i);
                CMenu* const below = popup ? In(*popup) : nullptr;
                if (below)
                    return below;
                position = i;
                if (!popup && menu.GetMenuItemID(i) == id)
                    return &menu;
            }
            position = -1;
            return nullptr;
        }
    };
    return Search{id, position}.In(*this);
}

BCMenuItem* BCMenu::RecordAt(std::size_t position) const
{
    return position < m_items.size() ? m_items[position].get() : nullptr;
}

BOOL BCMenu::GetMenuText(UINT id, std::string& text, UINT flags)
{
    if (!(flags & MF_BYPOSITION))
    {
        int position = -1;
        auto* const menu = dynamic_cast<BCMenu*>(FindItem(id, position));
        return menu && menu->GetMenuText(static_cast<UINT>(position), text, MF_BYPOSITION);
    }
    const BCMenuItem* const item = RecordAt(id);
    if (item)
        text = item->Text();
    return item != nullptr;
}

BOOL BCMenu::SetImage(UINT id, std::unique_ptr<CImageList> images, int picture, int tickedPicture)
{
    int position = -1;
    const auto* const menu = dynamic_cast<BCMenu*>(FindItem(id, position));
    BCMenuItem* const item = menu ? menu->RecordAt(static_cast<std::size_t>(position)) : nullptr;
    if (!item)
        return FALSE;
    item->m_images = std::move(images);
    item->m_nPicture = picture;
    item->m_nTickedPicture = tickedPicture;
    return TRUE;
}

LRESULT BCMenu::FindKey(char16_t character, UINT flags, BCMenu* menu)
{
    if (!menu || !(flags & MF_POPUP))
        return 0;
    const std::string key = CharLowerA(WideToAnsi(std::wstring{L'&', static_cast<wchar_t>(character)}));
    if (menu->GetMenuItemCount() != static_cast<int>(menu->m_items.size()))
        menu->Synchronize();
    for (std::size_t position = 0; position < menu->m_items.size(); ++position)
    {
        if (CharLowerA(menu->m_items[position]->Text()).find(key) != std::string::npos)
            return static_cast<LRESULT>(position & 0xFFFF) | LRESULT{MNC_EXECUTE} << 16;
    }
    return 0;
}

std::string BCMenu::EntryName(int position) const
{
    const BCMenuItem* const item = RecordAt(static_cast<std::size_t>(position));
    std::string name = CMenu::EntryName(position);
    return name.empty() && item ? item->Text() : name;
}

const BCMenuItem* BCMenu::RecordOf(DWORD_PTR data)
{
    for (const HMENU handle : g_menus)
    {
        const auto* const menu = dynamic_cast<const BCMenu*>(FromHandle(handle));
        if (!menu)
            continue;
        for (const auto& item : menu->m_items)
        {
            if (reinterpret_cast<DWORD_PTR>(item.get()) == data)
                return item.get();
        }
    }
    return nullptr;
}

#include "resources/Resources.h"

#include "resources/ResourceIds.h"

namespace
{

constexpr MenuEntry kListPopup[] = {
    {0, 0, "List"}, {1, ID_SELECT_ALL, "Select &All\t"},      {1, ID_REVERSE_SELECT, "&Reverse Select\t"},
    {1, 0, ""},     {1, IDC_REFRESH, "Refresh &Window List"},
};

constexpr MenuEntry kHistory[] = {
    {0, 0, "&File"},
    {1, ID_CLEAR_HISTORY, "&Clear Download History"},
    {1, 0, ""},
    {1, ID_APP_EXIT, "&Exit"},
};

// Nothing stands behind the first entry.
constexpr MenuEntry kAdvanced[] = {
    {0, 0, "&File"},
    {1, ID_NEW_PROJECT, "New Project...\t(Ctrl+N)"},
    {1, ID_CREATE_ALBUM, "&Create a Thumbnail Album..."},
    {1, 0, ""},
    {1, ID_APP_EXIT, "&Exit"},
};

constexpr MenuEntry kHelpPopup[] = {
    {0, 0, "Help"},
    {1, ID_USER_MANUAL, "User &Manual"},
    {1, 0, ""},
    {1, ID_CHECK_VERSION, "Check for &New Version..."},
    {1, 0, ""},
    {1, ID_HOME_PAGE, "Visit Vantroy &Home Page"},
    {1, ID_EMAIL_SUPPORT, "E-Mail &Support"},
    {1, 0, ""},
    {1, ID_ABOUT, "&About"},
};

} // namespace

std::span<const MenuTemplate> MenuResources()
{
    static constexpr MenuTemplate menus[] = {
        {IDR_LIST_POPUP, kListPopup},
        {IDR_HELP_POPUP, kHelpPopup},
        {IDR_HISTORY, kHistory},
        {IDR_ADVANCED, kAdvanced},
    };
    return menus;
}

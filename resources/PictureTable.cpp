#include "resources/Resources.h"

#include "resources/Pictures.h"
#include "resources/ResourceIds.h"

std::span<const PictureEntry> PictureResources()
{
    static const PictureEntry entries[] = {
        {IDI_APPLICATION_ICON, pictures::kIcon},
        {IDB_BANNER, pictures::kBanner},
        {IDB_CLEAR_HISTORY, pictures::kClearHistory},
        {IDB_HISTORY, pictures::kHistory},
        {IDB_DAY, pictures::kDay},
        {IDB_PAGE, pictures::kPage},
        {IDB_FILE, pictures::kFile},
        {IDB_SETTINGS, pictures::kSettings},
        {IDB_SETTINGS_PAGE, pictures::kSettingsPage},
        {IDB_ALBUM, pictures::kAlbum},
    };
    return entries;
}

std::span<const ToolBarTemplate> ToolBarResources()
{
    static constexpr ToolBarButton history[] = {{ID_CLEAR_HISTORY, IDB_CLEAR_HISTORY}};
    static constexpr ToolBarButton advanced[] = {{ID_CREATE_ALBUM, IDB_ALBUM}};
    static constexpr ToolBarTemplate toolBars[] = {{IDR_HISTORY, history}, {IDR_ADVANCED, advanced}};
    return toolBars;
}

std::span<const ImageStrip> ImageStripResources()
{
    static constexpr int levels[] = {IDB_HISTORY, IDB_DAY, IDB_PAGE, IDB_FILE};
    static constexpr int settings[] = {IDB_SETTINGS, IDB_SETTINGS_PAGE};
    static constexpr ImageStrip strips[] = {{IDR_HISTORY_LEVELS, levels}, {IDR_SETTINGS, settings}};
    return strips;
}

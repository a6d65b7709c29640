#include "resources/Resources.h"

#include "resources/ResourceIds.h"

#include "platform/window/FrameWnd.h"

std::span<const TextEntry> TextResources()
{
    static constexpr TextEntry texts[] = {
        {IDS_ABOUT_SYSTEM, "About Vantroy(&A)..."},
        {IDS_UNTITLED_PAGE, "无标题"},
        {IDS_COLUMN_TITLE, "Browser Window Title"},
        {IDS_COLUMN_URL, "Current URL"},
        {IDS_NO_PROGRESS_WINDOW, "Error creating progress window!"},
        {IDS_NO_WINDOW_COLLECTION, "Error creating ie doc window!"},
        {IDS_TERMINATING, "Terminating download thread now, please try again."},
        {IDS_NO_FILES, "No files to download."},
        {IDS_GETTING_LIST, "Now getting download files list..."},
        {IDS_DOWNLOADING, "Download files now..."},
        {IDS_DOWNLOAD_COMPLETE, "Download complete!"},
        {IDS_CANCEL_ALL, "Cancel &All"},
        {IDS_OK, "OK"},
        {IDS_ASK_CANCEL, "Are you sure you want to cancel current download task?"},
        {IDS_NO_FOLDER, "Folder %s does not exist.\nPlease specify a valid folder and try again."},
        {IDS_FILTERED, "Filtered."},
        {IDS_SIZE, "%d Bytes"},
        {IDS_PERCENT, "%d%% Complete"},
        {IDS_NO_PAGE, "No page to download."},
        {IDS_NO_URL_CACHE, "Unable to read url cache file: %s"},
        {IDS_NO_MEMORY, "Memory not enouth.Please close some other application and try again."},
        {IDS_BAD_URL_CACHE, "Error occured while parsing url cache file, please try again."},
        {IDS_COLUMN_FILE, "Filename"},
        {IDS_COLUMN_SIZE, "Size"},
        {IDS_COLUMN_PATH, "Path"},
        {IDS_COLUMN_ADDRESS, "Download URl"},
        {IDS_SIZE_KB, "%d KB"},
        {IDS_HISTORY_WINDOW, "Download History"},
        {IDS_HISTORY, "Download History"},
        {IDS_HISTORY_REMOVED, "Download history has been removed."},
        // Prompts of commands, and their tips.
        {ID_CLEAR_HISTORY, "Clear all download history\nClear all download history"},
        // Indicators of locked keys.
        {ID_INDICATOR_CAPS, "CAP"},
        {ID_INDICATOR_NUM, "NUM"},
        {ID_INDICATOR_SCRL, "SCRL"},
    };
    return texts;
}

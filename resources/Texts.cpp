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
        {IDS_CONFIGURATION, "Configuration..."},
        {IDS_NO_DOWNLOAD_FOLDER, "Failed to create download folder.\nThere maybe a file has the same name."},
        {IDS_ENTER_RESOLUTION, "Please enter an image resolution capacity item."},
        {IDS_SELECT_RESOLUTION, "Please select a resolusion capacity item to remove."},
        {IDS_BUTTON_ADDED, "Program shortcut icon has been added to browser's toolbar.\n"
                           "You need to restart browser to make it work."},
        {IDS_BUTTON_REMOVED, "Program shortcut icon has been removed.\nYou need to restart browser to make it work."},
        {IDS_NO_BROWSER, "No browser that Vantroy can reach has been used here yet. Start one with vantroy-browser; "
                         "install one before, "
                         "Chromium or Firefox for instance, if there is none."},
        {IDS_BROWSER_OPEN, "open; pages: %d"},
        {IDS_BROWSER_ASKS, "asks you about each program: allow the connection when Vantroy looks for pages."},
        {IDS_BROWSER_STALE,
         "was reachable and has been closed: start it again in the same way, or use vantroy-browser."},
        {IDS_BROWSER_NOT_ENABLED,
         "cannot be reached: start it with --remote-debugging-port=0, or use vantroy-browser."},
        {IDS_BROWSER_REFUSED, "may not be reached, by a policy of this machine: ask its administrator."},
        {IDS_BROWSER_TAKEN,
         "is held by another program, and lets one in at a time: end that program, or close the browser "
         "and start it again."},
        {IDS_BROWSER_NO_BUTTON, "takes no button on its toolbar: it accepts extensions from its maker's shop alone."},
        {IDS_HINT_NO_PAGE, "The browser has no page open."},
        {IDS_HINT_ASKS, "The browser asks you about each program. Press Refresh List and allow the connection."},
        {IDS_HINT_TAKEN, "The browser is held by another program. End that one, or start the browser again, and press "
                         "Refresh List."},
        {IDS_HINT_START, "No browser can be reached. Start one with vantroy-browser, and press Refresh List.\n"
                         "vantroy --browsers tells more."},
        {IDS_HISTORY_WINDOW, "Download History"},
        {IDS_HISTORY, "Download History"},
        {IDS_HISTORY_REMOVED, "Download history has been removed."},
        // A link that could not be opened, and why.
        {IDS_LINK_FAILED, "Unable to open hyperlink:\n\n%s"},
        {IDS_LINK_ERRORS + 0, "The operating system is out\nof memory or resources."},
        {IDS_LINK_ERRORS + 2, "The specified file was not found."},
        {IDS_LINK_ERRORS + 3, "The specified path was not found."},
        {IDS_LINK_ERRORS + 5, "The operating system denied\naccess to the specified file."},
        {IDS_LINK_ERRORS + 8, "There was not enough memory to complete the operation."},
        {IDS_LINK_ERRORS + 11, "The .EXE file is invalid\n(non-Win32 .EXE or error in .EXE image)."},
        {IDS_LINK_ERRORS + 26, "A sharing violation occurred. "},
        {IDS_LINK_ERRORS + 27, "The filename association is\nincomplete or invalid."},
        {IDS_LINK_ERRORS + 28, "The DDE transaction could not\nbe completed because the request timed out."},
        {IDS_LINK_ERRORS + 29, "The DDE transaction failed."},
        {IDS_LINK_ERRORS + 30,
         "The DDE transaction could not\nbe completed because other DDE transactions\nwere being processed."},
        {IDS_LINK_ERRORS + 31, "There is no application associated\nwith the given filename extension."},
        {IDS_LINK_ERRORS + 32, "The specified dynamic-link library was not found."},
        {IDS_LINK_ERROR_UNKNOWN, "Unknown Error (%d) occurred."},
        {IDS_VERSION_NUMBER, "%d.%d.%d"},
        {IDS_VERSION_CONNECTING, "Connecting download server, please wait..."},
        {IDS_VERSION_NO_SERVER, "Unable to connect to download server"},
        {IDS_VERSION_NO_ANSWER, "Unable to query version information."},
        {IDS_VERSION_NEWER, "Version %d.%d.%d is available now, click the button below to download."},
        {IDS_VERSION_LATEST, "You already have the latest version of Vantroy."},
        {IDS_VERSION_OK, "&OK"},
        // Beside the road of a download: the manual, the web, the about box.
        {IDS_HELP_FILE, "vantroy.chm"},
        {IDS_HOME_PAGE, "http://" VANTROY_WEB_HOST "/vantroy"},
        {IDS_EMAIL_SUPPORT, "mailto:" VANTROY_SUPPORT_ADDRESS},
        {IDS_PRODUCT_VERSION, "Vantroy " VANTROY_VERSION " Build " VANTROY_BUILD},
        {IDS_ADVANCED_WINDOW, "Advanced"},
        {IDS_ALBUM_NO_COMPONENT, "Unable to create Quenby Instance!\n"},
        {IDS_ALBUM_DISPATCH_ERROR, "IDispatch error #%d"},
        {IDS_ALBUM_UNKNOWN_ERROR, "Unknown error 0x%0lX"},
        // Prompts of commands, and their tips.
        {ID_CLEAR_HISTORY, "Clear all download history\nClear all download history"},
        {ID_CREATE_ALBUM, "Create a Thumbnail Album...\nCreate a Thumbnail Album..."},
        // Indicators of locked keys.
        {ID_INDICATOR_CAPS, "CAP"},
        {ID_INDICATOR_NUM, "NUM"},
        {ID_INDICATOR_SCRL, "SCRL"},
    };
    return texts;
}

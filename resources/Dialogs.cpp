#include "resources/Resources.h"

#include "resources/ResourceIds.h"

#include "platform/window/Messages.h"

namespace
{

using enum ControlClass;

// The list takes the two columns of 200 and 400 pixels at the usual desktop font; the buttons stand in pairs of what
// belongs together. The two hidden buttons share the place above Exit.
constexpr ControlTemplate kMain[] = {
    {Picture, IDC_STATIC, 0, 0, 440, 36, CS_NOTAB, "", "Vantroy", IDB_BANNER},
    {Label, IDC_STATIC, 7, 43, 347, 9, CS_NOTAB, "Current Browser Windows List:"},
    {ListView, IDC_WINDOW_LIST, 7, 54, 347, 163},
    {Button, IDC_REFRESH, 361, 54, 72, 15, CS_NONE, "&Refresh List"},
    {Button, IDC_DOWNLOAD, 361, 72, 72, 15, CS_DEFAULT, "&Download Now"},
    {Button, IDC_OPEN_FOLDER, 361, 97, 72, 15, CS_NONE, "&Open Folder"},
    {Button, IDC_HISTORY, 361, 115, 72, 15, CS_NONE, "View &History"},
    {Button, IDC_ALBUM, 361, 180, 72, 15, CS_HIDDEN, "&Album..."},
    {Button, IDC_ADVANCED, 361, 180, 72, 15, CS_HIDDEN, "Ad&vanced..."},
    {Button, IDC_SETUP, 361, 140, 72, 15, CS_NONE, "&Setup..."},
    {Button, IDC_HELP_MENU, 361, 158, 72, 15, CS_NONE, "&Help"},
    {Button, IDCANCEL, 361, 202, 72, 15, CS_NONE, "&Exit"},
};

// On the progress window and on the window of a batch run. The buttons come first in Tab order: the window opens with
// the focus where a press does something.
constexpr ControlTemplate kProgress[] = {
    {Button, IDC_CANCEL_CURRENT, 125, 95, 72, 15, CS_NONE, "&Cancel Current"},
    {Button, IDCANCEL, 201, 95, 72, 15, CS_DEFAULT, "Cancel &All"},
    {Label, IDC_STATIC, 7, 10, 58, 9, CS_NOTAB, "Download From:"},
    {Edit, IDC_TRANSFER_FROM, 67, 7, 206, 14, CS_READONLY},
    {Label, IDC_STATIC, 7, 29, 58, 9, CS_NOTAB, "Download File:"},
    {Edit, IDC_TRANSFER_FILE, 67, 26, 206, 14, CS_READONLY},
    {Label, IDC_STATIC, 7, 47, 58, 9, CS_NOTAB, "File Size:"},
    {Label, IDC_TRANSFER_SIZE, 67, 47, 206, 9, CS_NOTAB},
    {Label, IDC_STATIC, 7, 64, 58, 9, CS_NOTAB, "Progress:"},
    {ProgressBar, IDC_TRANSFER_BAR, 67, 62, 206, 12},
    {Label, IDC_TRANSFER_PERCENT, 67, 78, 206, 9, CS_NOTAB},
};

// The hidden button takes the place of the other when there is something to download.
constexpr ControlTemplate kVersion[] = {
    {Label, IDC_STATIC, 7, 9, 70, 9, CS_NOTAB, "Current Version: "},
    {Label, IDC_VERSION_OWN, 79, 9, 60, 9, CS_NOTAB, "", "Current Version"},
    {Label, IDC_VERSION_INFO, 7, 25, 206, 18, CS_NOTAB, "", "Result"},
    {Button, IDC_VERSION_DOWNLOAD, 141, 51, 72, 15, CS_HIDDEN, "&Download Now"},
    {Button, IDCANCEL, 141, 51, 72, 15, CS_DEFAULT, "&Cancel"},
};

constexpr ControlTemplate kAbout[] = {
    {Picture, IDC_STATIC, 7, 7, 32, 32, CS_NOTAB, "", "Vantroy", IDI_APPLICATION_ICON},
    {Label, IDC_ABOUT_VERSION, 46, 8, 187, 9, CS_NOTAB, "", "Version"},
    {Label, IDC_STATIC, 46, 22, 187, 9, CS_NOTAB, "http://" VANTROY_WEB_HOST "/vantroy"},
    {Label, IDC_STATIC, 46, 42, 187, 9, CS_NOTAB, "Copyright (C) 2026 Orlenta."},
    {Label, IDC_STATIC, 46, 54, 187, 18, CS_NOTAB,
     "This program comes without any warranty, to the extent that the law permits."},
    {Button, IDOK, 161, 79, 72, 15, CS_DEFAULT, "OK"},
};

// The units behind the numbers say nothing alone, so the numbers carry the name of their box.
constexpr ControlTemplate kDownloadSet[] = {
    {GroupBox, IDC_STATIC, 7, 4, 250, 36, CS_NOTAB, "Download Management"},
    {Label, IDC_STATIC, 14, 19, 50, 9, CS_NOTAB, "Save Folder:"},
    {Edit, IDC_SAVE_FOLDER, 66, 16, 162, 14, CS_NONE, "", "Save Folder"},
    {Button, IDC_BROWSE, 232, 16, 18, 14, CS_NONE, "...", "Browse for the save folder"},
    {GroupBox, IDC_STATIC, 7, 44, 250, 142, CS_NOTAB, "Download Filter"},
    {CheckBox, IDC_LIMIT_SIZE, 14, 56, 236, 11, CS_NONE, "Limit Download File Size"},
    {CheckBox, IDC_BIG_THAN, 26, 71, 86, 11, CS_NONE, "Download files >"},
    {Edit, IDC_BIG_THAN_KB, 114, 69, 52, 14, CS_NONE, "", "Download files >, in KB"},
    {Label, IDC_BIG_THAN_UNIT, 170, 72, 20, 9, CS_NOTAB, "KB."},
    {CheckBox, IDC_SMALL_THAN, 26, 88, 86, 11, CS_NONE, "Download files <"},
    {Edit, IDC_SMALL_THAN_KB, 114, 86, 52, 14, CS_NONE, "", "Download files <, in KB"},
    {Label, IDC_SMALL_THAN_UNIT, 170, 89, 20, 9, CS_NOTAB, "KB."},
    {CheckBox, IDC_LIMIT_RESOLUTION, 14, 106, 236, 11, CS_NONE, "Limit Images' Resolution"},
    {CheckBox, IDC_PRESET, 26, 120, 66, 11, CS_NONE, "640x480"},
    {CheckBox, IDC_PRESET + 1, 98, 120, 66, 11, CS_NONE, "800x600"},
    {CheckBox, IDC_PRESET + 2, 170, 120, 66, 11, CS_NONE, "1024x768"},
    {CheckBox, IDC_PRESET + 3, 26, 134, 66, 11, CS_NONE, "1280x768"},
    {CheckBox, IDC_PRESET + 4, 98, 134, 66, 11, CS_NONE, "1600x1200"},
    {Button, IDC_MORE, 170, 133, 60, 14, CS_NONE, "More..."},
    {Label, IDC_STATIC, 14, 154, 236, 9, CS_NOTAB, "Download Type"},
    {CheckBox, IDC_IMAGES, 26, 167, 66, 11, CS_NONE, "Images"},
    {CheckBox, IDC_MP3, 98, 167, 66, 11, CS_NONE, "MP3 Music"},
    {CheckBox, IDC_FLASH, 170, 167, 66, 11, CS_NONE, "Flash Files"},
};

constexpr ControlTemplate kGeneral[] = {
    {GroupBox, IDC_STATIC, 7, 4, 250, 56, CS_NOTAB, "Customize Browser"},
    {Button, IDC_ADD_BUTTON, 14, 18, 140, 15, CS_NONE, "&Add Shortcut to Toolbar"},
    {Button, IDC_REMOVE_BUTTON, 14, 37, 140, 15, CS_NONE, "&Remove Shortcut from Toolbar"},
};

// Enter in a number adds it.
constexpr ControlTemplate kResolutions[] = {
    {Label, IDC_STATIC, 7, 10, 10, 9, CS_NOTAB, "X:"},
    {Edit, IDC_RESOLUTION_X, 19, 7, 36, 14, CS_NONE, "", "X"},
    {Label, IDC_STATIC, 62, 10, 10, 9, CS_NOTAB, "Y:"},
    {Edit, IDC_RESOLUTION_Y, 74, 7, 36, 14, CS_NONE, "", "Y"},
    {Button, IDC_ADD, 118, 7, 60, 14, CS_DEFAULT, "&Add"},
    {ListBox, IDC_RESOLUTION_LIST, 7, 26, 104, 104, CS_NONE, "", "Resolutions"},
    {Button, IDC_REMOVE, 118, 26, 60, 14, CS_NONE, "&Remove"},
    {Button, IDOK, 118, 116, 60, 14, CS_NONE, "&OK"},
};

} // namespace

std::span<const DialogTemplate> DialogResources()
{
    static constexpr DialogTemplate dialogs[] = {
        {IDD_MAIN, 440, 224, DS_SYSMENU | DS_MINIMIZEBOX, "Vantroy", kMain},
        {IDD_PROGRESS, 280, 117, DS_SYSMENU, "Vantroy", kProgress},
        {IDD_BATCH, 280, 117, DS_SYSMENU | DS_MINIMIZEBOX, "Vantroy", kProgress},
        {IDD_VERSION, 220, 73, DS_SYSMENU, "Check for new version of Vantroy", kVersion},
        {IDD_ABOUT, 240, 101, DS_SYSMENU, "About Vantroy", kAbout},
        {IDD_DOWNLOAD_SET, 264, 192, DS_NONE, "Download Setting", kDownloadSet},
        {IDD_GENERAL, 264, 192, DS_NONE, "System Setting", kGeneral},
        {IDD_RESOLUTIONS, 185, 137, DS_SYSMENU, "Resolution Capacity List", kResolutions},
    };
    return dialogs;
}

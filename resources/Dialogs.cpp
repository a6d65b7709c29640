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

} // namespace

std::span<const DialogTemplate> DialogResources()
{
    static constexpr DialogTemplate dialogs[] = {
        {IDD_MAIN, 440, 224, DS_SYSMENU | DS_MINIMIZEBOX, "Vantroy", kMain},
        {IDD_PROGRESS, 280, 117, DS_SYSMENU, "Vantroy", kProgress},
        {IDD_BATCH, 280, 117, DS_SYSMENU | DS_MINIMIZEBOX, "Vantroy", kProgress},
        {IDD_VERSION, 220, 73, DS_SYSMENU, "Check for new version of Vantroy", kVersion},
    };
    return dialogs;
}

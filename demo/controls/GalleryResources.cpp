#include "demo/controls/GalleryResources.h"

#include "resources/Resources.h"

#include "platform/window/Messages.h"

namespace
{

constexpr ControlTemplate kGallery[] = {
    {ControlClass::Label, kUnnamedControl, 8, 8, 240, 10, CS_NONE, "Rich buttons:"},
    {ControlClass::Button, IDC_PLAIN, 8, 20, 76, 16, CS_NONE, "&Plain"},
    {ControlClass::Button, IDC_DEFAULT, 90, 20, 76, 16, CS_DEFAULT, "&Default"},
    {ControlClass::Button, IDC_DISABLED, 172, 20, 76, 16, CS_DISABLED, "Disabled"},
    {ControlClass::Button, IDC_COLOURED, 8, 42, 76, 16, CS_NONE, "&Colours"},
    {ControlClass::Button, IDC_SOUNDS, 90, 42, 76, 16, CS_NONE, "&Sounds"},
    {ControlClass::Button, IDC_WEB, 172, 42, 76, 16, CS_NONE, "&Web address"},
    {ControlClass::Button, IDC_TICK, 8, 64, 76, 16, CS_NONE, "&Tick me"},
    {ControlClass::Button, IDC_TICKED, 90, 64, 76, 16, CS_NONE, "Tic&ked"},
    {ControlClass::Button, IDC_TICKED_DISABLED, 172, 64, 76, 16, CS_DISABLED, "Ticked, disabled"},
    {ControlClass::Label, kUnnamedControl, 8, 90, 78, 10, CS_NONE, "The desktop's own:"},
    {ControlClass::Button, IDC_OWN, 90, 86, 76, 16, CS_NONE, "P&ush button"},
    {ControlClass::Label, kUnnamedControl, 8, 112, 78, 10, CS_NONE, "A link:"},
    {ControlClass::Label, IDC_LINK, 90, 112, 100, 12, CS_NOTIFY, "To this machine"},
    {ControlClass::Label, kUnnamedControl, 260, 8, 110, 10, CS_NONE, "With a menu:"},
    {ControlClass::Button, IDC_MENU, 260, 20, 76, 16, CS_NONE, "&Menu"},
    {ControlClass::Label, IDC_SAID, 8, 134, 240, 10, CS_NONE, "Press something.", "Last press"},
    {ControlClass::Button, IDCANCEL, 304, 132, 76, 16, CS_NONE, "Close"},
};

constexpr DialogTemplate kDialogs[] = {{IDD_GALLERY, 388, 156, DS_SYSMENU, "Controls", kGallery}};

constexpr MenuEntry kEntries[] = {
    {0, 0, "Popup"},
    {1, ID_OPEN, "&Open\tCtrl+O"},
    {1, ID_SAVE, "&Save\tCtrl+S"},
    {1, 0, {}},
    {1, ID_TOOLS, "Show &tools"},
    {1, ID_FISH, "Fish && &chips\tShift+F1"},
    {1, ID_GREYED, "Not &now"},
    {1, 0, {}},
    {1, 0, "Si&ze"},
    {2, ID_LARGE, "&Large"},
    {2, ID_SMALL, "&Small"},
};
constexpr MenuTemplate kMenus[] = {{IDR_GALLERY_MENU, kEntries}};

constexpr PictureEntry kPictures[] = {
    {IDI_PAPER, "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 16 16'>"
                "<path d='M3.5 1.5h6l3 3v10h-9z' fill='#fff' stroke='#667'/>"
                "<path d='M5.5 7h5M5.5 9.5h5M5.5 12h3' stroke='#38c' fill='none'/></svg>"},
};

} // namespace

const ResourceTable& GalleryResources()
{
    static const ResourceTable table{.applicationName = "Controls",
                                     .desktopFile = "vantroy-controls",
                                     .dialogs = kDialogs,
                                     .menus = kMenus,
                                     .texts = TextResources(),
                                     .pictures = kPictures,
                                     .version = {},
                                     .usage = {}};
    return table;
}

#include "ControlsTest.h"

#include "resources/Resources.h"

namespace
{

constexpr ControlTemplate kRich[] = {
    {ControlClass::Button, IDC_RICH, 6, 6, 80, 16, CS_NONE, "&Rich"},
    {ControlClass::Edit, IDC_OTHER, 6, 30, 80, 14, CS_NONE, {}, "Other"},
    {ControlClass::Button, IDCANCEL, 6, 50, 80, 16, CS_NONE, "Cancel"},
};
constexpr ControlTemplate kDefault[] = {{ControlClass::Button, IDC_RICH, 6, 6, 80, 16, CS_DEFAULT, "&Rich"}};
constexpr ControlTemplate kLink[] = {
    {ControlClass::Button, IDOK, 6, 6, 60, 16, CS_DEFAULT, "Close"},
    {ControlClass::Label, IDC_LINK, 6, 30, 100, 12, CS_NOTIFY, "Home of this"},
};
constexpr DialogTemplate kDialogs[] = {
    {IDD_RICH, 120, 74, DS_SYSMENU, "Rich", kRich},
    {IDD_DEFAULT, 120, 28, DS_SYSMENU, "Rich", kDefault},
    {IDD_LINK, 112, 48, DS_SYSMENU, "Links", kLink},
};
constexpr MenuEntry kEntries[] = {
    {0, 0, "Popup"}, {1, ID_OPEN, "&Open\tCtrl+O"}, {1, ID_SAVE, "&Save"}, {1, 0, {}},
    {1, 0, "&More"}, {2, ID_INNER, "&Inner"},
};
constexpr MenuTemplate kMenus[] = {{IDR_RICH, kEntries}};
constexpr PictureEntry kPictures[] = {
    {1, "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='9' height='9' fill='red'/></svg>"},
};

} // namespace

void ControlsTest::SetUp()
{
    static const ResourceTable table{"Controls test", "controls-test",          kDialogs,
                                     kMenus,          VantroyResources().texts, kPictures};
    AfxSetResources(table);
}

#include "ControlsTest.h"

namespace
{

constexpr ControlTemplate kRich[] = {
    {ControlClass::Button, IDC_RICH, 6, 6, 80, 16, CS_NONE, "&Rich"},
    {ControlClass::Edit, IDC_OTHER, 6, 30, 80, 14, CS_NONE, {}, "Other"},
    {ControlClass::Button, IDCANCEL, 6, 50, 80, 16, CS_NONE, "Cancel"},
};
constexpr ControlTemplate kDefault[] = {{ControlClass::Button, IDC_RICH, 6, 6, 80, 16, CS_DEFAULT, "&Rich"}};
constexpr DialogTemplate kDialogs[] = {
    {IDD_RICH, 120, 74, DS_SYSMENU, "Rich", kRich},
    {IDD_DEFAULT, 120, 28, DS_SYSMENU, "Rich", kDefault},
};
constexpr MenuEntry kEntries[] = {
    {0, 0, "Popup"}, {1, ID_OPEN, "&Open\tCtrl+O"}, {1, ID_SAVE, "&Save"}, {1, 0, {}},
    {1, 0, "&More"}, {2, ID_INNER, "&Inner"},
};
constexpr MenuTemplate kMenus[] = {{IDR_RICH, kEntries}};
constexpr PictureEntry kPictures[] = {
    {1, "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='9' height='9' fill='red'/></svg>"},
};
constexpr ResourceTable kTable{"Controls test", "controls-test", kDialogs, kMenus, {}, kPictures};

} // namespace

void ControlsTest::SetUp()
{
    AfxSetResources(kTable);
}

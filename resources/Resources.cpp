#include "resources/Resources.h"

const ResourceTable& VantroyResources()
{
    static const ResourceTable table{.applicationName = "Vantroy",
                                     .desktopFile = "vantroy",
                                     .dialogs = DialogResources(),
                                     .menus = MenuResources(),
                                     .texts = TextResources(),
                                     .pictures = PictureResources(),
                                     .toolBars = ToolBarResources(),
                                     .imageStrips = ImageStripResources(),
                                     .version = VersionResource(),
                                     .usage = UsageResource()};
    return table;
}

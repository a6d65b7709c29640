#include "resources/Resources.h"

const ResourceTable& VantroyResources()
{
    static const ResourceTable table{.applicationName = "Vantroy",
                                     .desktopFile = "vantroy",
                                     .dialogs = DialogResources(),
                                     .menus = MenuResources(),
                                     .texts = TextResources(),
                                     .pictures = PictureResources(),
                                     .version = VersionResource(),
                                     .usage = UsageResource()};
    return table;
}

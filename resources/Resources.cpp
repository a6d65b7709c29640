#include "resources/Resources.h"

const ResourceTable& VantroyResources()
{
    static const ResourceTable table{"Vantroy",       "vantroy",          DialogResources(), MenuResources(),
                                     TextResources(), PictureResources(), VersionResource(), UsageResource()};
    return table;
}

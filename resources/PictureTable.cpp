#include "resources/Resources.h"

#include "resources/Pictures.h"
#include "resources/ResourceIds.h"

std::span<const PictureEntry> PictureResources()
{
    static const PictureEntry entries[] = {
        {IDI_APPLICATION_ICON, pictures::kIcon},
        {IDB_BANNER, pictures::kBanner},
    };
    return entries;
}

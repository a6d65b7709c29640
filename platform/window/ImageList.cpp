#include "platform/window/ImageList_p.h"

#include "platform/window/Picture_p.h"
#include "platform/window/Resource.h"

#include <algorithm>

BOOL CImageList::Create(UINT stripId, int width)
{
    const ResourceTable* resources = AfxGetResources();
    if (!resources)
        return FALSE;
    const auto strip = std::ranges::find(resources->imageStrips, static_cast<int>(stripId), &ImageStrip::id);
    if (strip == resources->imageStrips.end())
        return FALSE;
    auto images = std::make_shared<Images>();
    images->width = width;
    for (const int picture : strip->pictures)
        images->icons.push_back(PictureIcon(picture));
    m_images = std::move(images);
    return TRUE;
}

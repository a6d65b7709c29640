#include "platform/window/ImageList_p.h"

#include "platform/window/Picture_p.h"
#include "platform/window/Resource.h"

#include <algorithm>

void CImageList::Images::Add(HICON handle)
{
    images.push_back({handle, PictureIcon(static_cast<int>(handle.resource))});
}

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
        images->Add({static_cast<std::uint32_t>(picture)});
    m_images = std::move(images);
    return TRUE;
}

BOOL CImageList::Create(int width)
{
    auto images = std::make_shared<Images>();
    images->width = width;
    m_images = std::move(images);
    return TRUE;
}

void CImageList::DeleteImageList()
{
    m_images.reset();
}

int CImageList::GetImageCount() const
{
    return m_images ? static_cast<int>(m_images->images.size()) : 0;
}

int CImageList::GetImageWidth() const
{
    return m_images ? m_images->width : 0;
}

int CImageList::Add(HICON icon)
{
    if (!m_images || !icon)
        return -1;
    auto images = std::make_shared<Images>(*m_images);
    images->Add(icon);
    m_images = std::move(images);
    return GetImageCount() - 1;
}

HICON CImageList::ExtractIcon(int image) const
{
    return m_images ? m_images->At(image).handle : HICON();
}

#pragma once

#include "platform/window/ImageList.h"

#include <QIcon>

#include <vector>

struct CImageList::Images
{
    struct Image
    {
        HICON handle;
        QIcon icon;
    };

    std::vector<Image> images;
    int width;

    void Add(HICON handle);
    // Nothing for a number that there is none for.
    Image At(int number) const
    {
        const auto index = static_cast<std::size_t>(number);
        return index < images.size() ? images[index] : Image();
    }
    QIcon Icon(int number) const
    {
        return At(number).icon;
    }
};

#pragma once

#include "platform/window/ImageList.h"

#include <QIcon>

#include <vector>

struct CImageList::Images
{
    std::vector<QIcon> icons;
    int width;

    // A null icon for a number that there is none for.
    QIcon Icon(int number) const
    {
        const auto index = static_cast<std::size_t>(number);
        return index < icons.size() ? icons[index] : QIcon();
    }
};

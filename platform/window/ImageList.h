// Small pictures by index, for trees and lists.
#pragma once

#include "platform/window/Handle.h"

#include "platform/Types.h"

#include <memory>

// User-interface thread. A copy shares the images until one is added to either. An icon is a value: it outlives its
// list and need not be destroyed.
class CImageList
{
public:
    // Takes the pictures of an image strip of the resource table, in their order, shown `width` device-independent
    // pixels wide and high, crisp at every scale. FALSE if there is no such strip.
    BOOL Create(UINT stripId, int width);
    // An empty list for images of that width and height.
    BOOL Create(int width);
    void DeleteImageList();

    int GetImageCount() const;
    // Of each image, in device-independent pixels; 0 for a list that was not created.
    int GetImageWidth() const;
    // Appends the icon and gives its number; -1 for a null icon or a list that was not created. Controls that have the
    // list keep what they were given.
    int Add(HICON icon);
    // The null icon for a number that there is none for.
    HICON ExtractIcon(int image) const;

    // The layer's own.
    struct Images;
    const std::shared_ptr<const Images>& Shared() const
    {
        return m_images;
    }

private:
    std::shared_ptr<const Images> m_images;
};

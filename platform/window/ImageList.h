// Small pictures by index, for trees and lists.
#pragma once

#include "platform/Types.h"

#include <memory>

// User-interface thread. Copies share the images.
class CImageList
{
public:
    // Takes the pictures of an image strip of the resource table, in their order, shown `width` device-independent
    // pixels wide and high, crisp at every scale. FALSE if there is no such strip.
    BOOL Create(UINT stripId, int width);

    // The layer's own.
    struct Images;
    const std::shared_ptr<const Images>& Shared() const
    {
        return m_images;
    }

private:
    std::shared_ptr<const Images> m_images;
};

// The component that makes thumbnail albums. It is no part of this program, which only creates it and tells it to
// begin.
#pragma once

#include "platform/com/Unknown.h"

inline constexpr const char* kQuenbyGalleryProgId = "Quenby.Gallery";

class IQuenbyGallery : public IDispatch
{
public:
    static constexpr IID kIid{0xA47C10E3, 0x6B2D, 0x4E58, {0xB9, 0xF1, 0x73, 0xD2, 0xC0, 0x5E, 0x1A, 0x96}};

    // Returns when the album is made, or was given up. What it is made of, and where it goes, the component settles.
    virtual HRESULT CreateAlbum() = 0;

protected:
    ~IQuenbyGallery() = default;
};

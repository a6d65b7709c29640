// What an object offers that has to be brought to its running state before use.
#pragma once

#include "platform/com/Unknown.h"

class IRunnableObject : public IUnknown
{
public:
    static constexpr IID kIid{0x00000126, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

    virtual HRESULT Run() = 0;

protected:
    ~IRunnableObject() = default;
};

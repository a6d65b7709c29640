// WM_SIZE, once for each size.
#pragma once

#include "platform/window/WindowRecord_p.h"

#include <QSize>

class SizeTeller
{
public:
    void Tell(WindowRecord& record, const QSize& size)
    {
        if (size == m_told)
            return;
        m_told = size;
        record.SendFromToolkit(WM_SIZE, 0, PairToLParam(size.width(), size.height()));
    }

private:
    QSize m_told; // none yet
};

#include "historyview/SplitLayout.h"

#include <algorithm>
#include <limits>

namespace
{

// What a part without room leaves to the one before it beside its own.
constexpr int kLostEdge = 2;

void TakeIdealSizes(std::span<CSplitterWnd::CRowColInfo> parts)
{
    for (CSplitterWnd::CRowColInfo& part : parts)
    {
        if (part.nIdealSize < part.nMinSize)
            part.nIdealSize = 0;
        part.nCurSize = part.nIdealSize;
    }
}

// Takes the bar behind a part out of what is left.
void TakeBar(CSplitterWnd::CRowColInfo& part, int& left, int bar)
{
    if (left > bar)
    {
        left -= bar;
        return;
    }
    part.nCurSize += left;
    if (part.nCurSize > bar - kLostEdge)
        part.nCurSize -= bar - kLostEdge;
    left = 0;
}

} // namespace

void LayOut(std::span<CSplitterWnd::CRowColInfo> parts, int total, int bar)
{
    if (parts.empty())
        return;
    TakeIdealSizes(parts.first(parts.size() - 1));
    parts.back().nCurSize = std::numeric_limits<int>::max();
    int left = std::max(total, 0);
    for (std::size_t i = 0; i < parts.size(); ++i)
    {
        CSplitterWnd::CRowColInfo& part = parts[i];
        if (left == 0)
        {
            part.nCurSize = 0;
            continue;
        }
        if (left < part.nMinSize && i > 0)
        {
            part.nCurSize = 0;
            parts[i - 1].nCurSize += left + kLostEdge;
            left = 0;
        }
        else
        {
            part.nCurSize = std::min(part.nCurSize, left);
            left -= part.nCurSize;
        }
        if (i + 1 < parts.size())
            TakeBar(part, left, bar);
    }
}

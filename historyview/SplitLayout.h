// How the columns, or the rows, of a splitter share a size: pure, in device-independent pixels.
#pragma once

#include "platform/window/SplitterWnd.h"

#include <span>

// Gives every entry its current size out of `total`, with a bar of `bar` between two of them. The last one takes what
// the others leave; where there is too little, the last ones shrink first, down to nothing. A part that gets less than
// its minimum gets nothing, and the one before it gets its room.
void LayOut(std::span<CSplitterWnd::CRowColInfo> parts, int total, int bar);

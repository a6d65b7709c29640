// The splitter of the history window: the tree of days and pages, and the list beside it.
#pragma once

#include "platform/window/SplitterWnd.h"

class CHistorySplitter : public CSplitterWnd
{
public:
    CHistorySplitter();

    void RecalcLayout() override;

    // The pane of the splitter that `view` stands in; null if there is none.
    static CWnd* PaneBeside(const CWnd& view, int row, int column);

protected:
    void OnDrawSplitter(CDC* dc, Part part, const RECT& rect) override;
};

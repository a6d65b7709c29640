#include "historyview/HistorySplitter.h"

#include "historyview/SplitLayout.h"

#include "platform/window/DeviceContext.h"

namespace
{

constexpr int kBar = 5;
constexpr int kGap = 5;
constexpr int kBorder = 1;

} // namespace

CHistorySplitter::CHistorySplitter()
{
    m_cxSplitter = m_cySplitter = kBar;
    m_cxSplitterGap = m_cySplitterGap = kGap;
    m_cxBorder = m_cyBorder = kBorder;
}

CWnd* CHistorySplitter::PaneBeside(const CWnd& view, int row, int column)
{
    const auto* splitter = dynamic_cast<const CHistorySplitter*>(CWnd::FromHandle(GetParent(view.GetSafeHwnd())));
    return splitter ? splitter->GetPane(row, column) : nullptr;
}

void CHistorySplitter::RecalcLayout()
{
    RECT client;
    GetClientRect(&client);
    const RECT inner{client.left + m_cxBorder, client.top + m_cyBorder, client.right - m_cxBorder,
                     client.bottom - m_cyBorder};
    LayOut(m_columns, inner.right - inner.left, m_cxSplitterGap);
    LayOut(m_rows, inner.bottom - inner.top, m_cySplitterGap);
    LONG top = inner.top;
    for (int row = 0; row < GetRowCount(); ++row)
    {
        const LONG bottom = top + m_rows[static_cast<std::size_t>(row)].nCurSize;
        LONG left = inner.left;
        for (int column = 0; column < GetColumnCount(); ++column)
        {
            const LONG right = left + m_columns[static_cast<std::size_t>(column)].nCurSize;
            // A splitter in a splitter lays its border over this one's.
            const LONG over = dynamic_cast<CSplitterWnd*>(GetPane(row, column)) ? 1 : 0;
            MovePane(row, column, {left - over, top - over, right + over, bottom + over});
            left = right + m_cxSplitterGap;
        }
        top = bottom + m_cySplitterGap;
    }
    InvalidateBars();
}

void CHistorySplitter::OnDrawSplitter(CDC* dc, Part part, const RECT& rect)
{
    if (part == Part::Border && dc)
        dc->Draw3dRect(rect, GetSysColor(COLOR_3DSHADOW), GetSysColor(COLOR_3DHIGHLIGHT));
    else
        CSplitterWnd::OnDrawSplitter(dc, part, rect);
}

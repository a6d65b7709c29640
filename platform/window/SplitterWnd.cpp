#include "platform/window/SplitterWnd.h"

#include "platform/window/Creation_p.h"
#include "platform/window/PaintDC.h"
#include "platform/window/PeerAccess_p.h"
#include "platform/window/View.h"
#include "platform/window/widgets/SplitterWidget_p.h"

#include <algorithm>

namespace
{

// The published number of the first pane; the others follow, sixteen a row.
constexpr UINT kFirstPane = 0xE900;
constexpr UINT kPanesOfRow = 16;

} // namespace

CSplitterWnd::CSplitterWnd() = default;
CSplitterWnd::~CSplitterWnd() = default;

BOOL CSplitterWnd::CreateStatic(CWnd* parent, int rows, int columns)
{
    const auto isCount = [](int count) { return count > 0 && count <= static_cast<int>(kPanesOfRow); };
    if (!isCount(rows) || !isCount(columns) || m_hWnd)
        return FALSE;
    m_rows.assign(static_cast<std::size_t>(rows), {});
    m_columns.assign(static_cast<std::size_t>(columns), {});
    m_panes.assign(m_rows.size() * m_columns.size(), {});
    BOOL made = FALSE;
    RunOnDesktop([&] {
        auto* widget = MakeChild<SplitterWidget>(*this, parent, kFirstPane, {});
        made = widget != nullptr;
        if (made)
            widget->setGeometry(widget->parentWidget()->rect());
    });
    return made;
}

BOOL CSplitterWnd::CreateView(int row, int column, std::unique_ptr<CView> view, int width, int height)
{
    const std::size_t place = PlaceOf(row, column);
    if (place >= m_panes.size() || !IsWindow(m_hWnd) || IsWindow(m_panes[place]))
        return FALSE;
    m_columns[static_cast<std::size_t>(column)].nIdealSize = width;
    m_rows[static_cast<std::size_t>(row)].nIdealSize = height;
    const UINT id = kFirstPane + static_cast<UINT>(row) * kPanesOfRow + static_cast<UINT>(column);
    // From here on it deletes itself.
    CView* pane = view.release();
    if (!pane->Create({0, 0, width, height}, this, id))
        return FALSE;
    m_panes[place] = pane->m_hWnd;
    if (std::ranges::all_of(m_panes, &IsWindow))
        RecalcLayout();
    return TRUE;
}

std::size_t CSplitterWnd::PlaceOf(int row, int column) const
{
    const bool stands = row >= 0 && row < GetRowCount() && column >= 0 && column < GetColumnCount();
    return stands ? static_cast<std::size_t>(row) * m_columns.size() + static_cast<std::size_t>(column)
                  : m_panes.size();
}

int CSplitterWnd::GetRowCount() const
{
    return static_cast<int>(m_rows.size());
}

int CSplitterWnd::GetColumnCount() const
{
    return static_cast<int>(m_columns.size());
}

CWnd* CSplitterWnd::GetPane(int row, int column) const
{
    const std::size_t place = PlaceOf(row, column);
    return place < m_panes.size() ? CWnd::FromHandle(m_panes[place]) : nullptr;
}

void CSplitterWnd::MovePane(int row, int column, const RECT& area)
{
    if (const CWnd* pane = GetPane(row, column))
        pane->MoveWindow(area);
}

void CSplitterWnd::InvalidateBars()
{
    DrawBars(nullptr);
}

void CSplitterWnd::OnDrawSplitter(CDC* dc, Part part, const RECT& rect)
{
    if (!dc)
    {
        ForPeer<SplitterWidget>(m_hWnd, [&rect](SplitterWidget& widget) { widget.update(ToolkitRect(rect)); });
    }
    else if (part != Part::Border)
    {
        dc->FillSolidRect(rect, GetSysColor(COLOR_3DFACE));
    }
}

std::vector<CSplitterWnd::Stretch> CSplitterWnd::PanesOf(const Dimension& dimension)
{
    std::vector<Stretch> panes;
    int start = dimension.nBorder;
    for (const CRowColInfo& info : *dimension.infos)
    {
        panes.push_back({start, start + info.nCurSize});
        start += info.nCurSize + dimension.nGap;
    }
    return panes;
}

// Each in the middle of its gap.
std::vector<CSplitterWnd::Stretch> CSplitterWnd::BarsOf(const Dimension& dimension)
{
    std::vector<Stretch> bars = PanesOf(dimension);
    bars.pop_back();
    for (Stretch& bar : bars)
    {
        const int start = bar.end + (dimension.nGap - dimension.nBar) / 2;
        bar = {start, start + dimension.nBar};
    }
    return bars;
}

CSplitterWnd::Dimension CSplitterWnd::Columns()
{
    return {&m_columns, m_cxSplitter, m_cxSplitterGap, m_cxBorder};
}

CSplitterWnd::Dimension CSplitterWnd::Rows()
{
    return {&m_rows, m_cySplitter, m_cySplitterGap, m_cyBorder};
}

void CSplitterWnd::DrawBars(CDC* dc)
{
    RECT client;
    GetClientRect(&client);
    const auto columnBars = BarsOf(Columns());
    const auto rowBars = BarsOf(Rows());
    for (const auto& [left, right] : columnBars)
        OnDrawSplitter(dc, Part::Bar, {left, m_cyBorder, right, client.bottom - m_cyBorder});
    for (const auto& [top, bottom] : rowBars)
    {
        OnDrawSplitter(dc, Part::Bar, {m_cxBorder, top, client.right - m_cxBorder, bottom});
        for (const auto& [left, right] : columnBars)
            OnDrawSplitter(dc, Part::Intersection, {left, top, right, bottom});
    }
}

void CSplitterWnd::DrawBorders(CDC& dc)
{
    for (const auto& [top, bottom] : PanesOf(Rows()))
    {
        for (const auto& [left, right] : PanesOf(Columns()))
        {
            if (right > left && bottom > top)
                OnDrawSplitter(&dc, Part::Border,
                               {left - m_cxBorder, top - m_cyBorder, right + m_cxBorder, bottom + m_cyBorder});
        }
    }
}

int CSplitterWnd::BarAt(const Dimension& dimension, int place)
{
    const auto bars = BarsOf(dimension);
    const auto bar =
        std::ranges::find_if(bars, [place](const Stretch& s) { return place >= s.start && place < s.end; });
    return bar == bars.end() ? kNoBar : static_cast<int>(bar - bars.begin());
}

// The bar stays within reach, so the pane before it leaves room for it.
void CSplitterWnd::MoveBar(const Dimension& dimension, int bar, int barStart, int total)
{
    if (bar == kNoBar)
        return;
    const auto index = static_cast<std::size_t>(bar);
    const int paneStart = PanesOf(dimension)[index].start;
    const int end = barStart - (dimension.nGap - dimension.nBar) / 2;
    const int most = total - dimension.nBorder - dimension.nGap - paneStart;
    (*dimension.infos)[index].nIdealSize = std::max(0, std::min(end - paneStart, most));
}

void CSplitterWnd::BeginDrag(POINT place)
{
    m_nColumnBar = BarAt(Columns(), place.x);
    m_nRowBar = BarAt(Rows(), place.y);
    if (m_nColumnBar != kNoBar)
        m_grip.x = place.x - BarsOf(Columns())[static_cast<std::size_t>(m_nColumnBar)].start;
    if (m_nRowBar != kNoBar)
        m_grip.y = place.y - BarsOf(Rows())[static_cast<std::size_t>(m_nRowBar)].start;
}

void CSplitterWnd::EndDrag()
{
    m_nColumnBar = kNoBar;
    m_nRowBar = kNoBar;
}

void CSplitterWnd::OnMouseMove(POINT place, bool held)
{
    // The button may have been let go of over another window.
    if (!held)
        EndDrag();
    if (m_nColumnBar == kNoBar && m_nRowBar == kNoBar)
    {
        const bool sideways = BarAt(Columns(), place.x) != kNoBar;
        const bool upAndDown = BarAt(Rows(), place.y) != kNoBar;
        ForPeer<SplitterWidget>(m_hWnd, [=](SplitterWidget& widget) { widget.ShowBarCursor(sideways, upAndDown); });
        return;
    }
    RECT client;
    GetClientRect(&client);
    MoveBar(Columns(), m_nColumnBar, place.x - m_grip.x, client.right);
    MoveBar(Rows(), m_nRowBar, place.y - m_grip.y, client.bottom);
    RecalcLayout();
}

LRESULT CSplitterWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_PAINT:
    {
        CPaintDC dc(this);
        DrawBars(&dc);
        DrawBorders(dc);
        return 0;
    }
    case WM_SIZE:
        RecalcLayout();
        return 0;
    case WM_LBUTTONDOWN:
        BeginDrag(PointFromLParam(lParam));
        return 0;
    case WM_MOUSEMOVE:
        OnMouseMove(PointFromLParam(lParam), wParam & MK_LBUTTON);
        return 0;
    case WM_LBUTTONUP:
        EndDrag();
        return 0;
    default:
        return CWnd::DefWindowProc(message, wParam, lParam);
    }
}

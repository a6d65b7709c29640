// A window that shares its area among panes in rows and columns, with bars between them that the user drags.
#pragma once

#include "platform/window/Wnd.h"

#include <functional>
#include <memory>
#include <vector>

class CDC;
class CView;

// User-interface thread. The object outlives its window, as a member of the frame does.
class CSplitterWnd : public CWnd
{
public:
    // The sizes of a row or a column, in device-independent pixels.
    struct CRowColInfo
    {
        int nMinSize = 0;
        int nIdealSize = 0; // what the program or the user has asked for
        int nCurSize = 0;   // what RecalcLayout has given
    };

    CSplitterWnd();
    ~CSplitterWnd() override;

    // Makes the window as a child of `parent`, which it fills. FALSE if it cannot be made.
    BOOL CreateStatic(CWnd* parent, int rows, int columns);
    // Makes the pane of a place; its ideal width and height become those of its column and row. FALSE if the view's
    // window cannot be made; the view is gone then.
    BOOL CreateView(int row, int column, std::unique_ptr<CView> view, int width, int height);

    int GetRowCount() const;
    int GetColumnCount() const;
    // Null where there is none (yet).
    CWnd* GetPane(int row, int column) const;

    // Lays the panes out anew; called when the size changes and when a bar was dragged.
    virtual void RecalcLayout() = 0;

protected:
    enum class Part
    {
        Bar,          // between two columns or rows
        Intersection, // where two bars cross
        Border,       // of a pane
    };

    // Draws a part; with a null device it asks for that part to be painted instead. The base fills bars and crossings
    // with the face colour and draws no border.
    virtual void OnDrawSplitter(CDC* dc, Part part, const RECT& rect);

    // For RecalcLayout.

    // Moves the pane if its place is another; the places of all panes show at once, at the next paint.
    void MovePane(int row, int column, const RECT& area);
    // Asks for all bars to be painted.
    void InvalidateBars();

    std::vector<CRowColInfo> m_rows;
    std::vector<CRowColInfo> m_columns;

    // Metrics, in device-independent pixels; the derived class sets them in its constructor.
    int m_cxSplitter = 5;    // width of a bar between columns, which is drawn and dragged
    int m_cySplitter = 5;    // height of a bar between rows
    int m_cxSplitterGap = 5; // between two columns
    int m_cySplitterGap = 5;
    int m_cxBorder = 1; // around all panes
    int m_cyBorder = 1;

    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static constexpr int kNoBar = -1;

    // From one place to another in one direction.
    struct Stretch
    {
        int start;
        int end;
    };
    // What the rows and the columns have in common.
    struct Dimension
    {
        std::vector<CRowColInfo>* infos;
        int nBar;
        int nGap;
        int nBorder;
    };

    Dimension Columns();
    Dimension Rows();
    static std::vector<Stretch> PanesOf(const Dimension& dimension);
    static std::vector<Stretch> BarsOf(const Dimension& dimension);
    // The bar at a place, by the number of the pane before it.
    static int BarAt(const Dimension& dimension, int place);
    static void MoveBar(const Dimension& dimension, int bar, int barStart, int total);
    std::size_t PlaceOf(int row, int column) const;
    // Asks for them to be painted if there is no device.
    void DrawBars(CDC* dc);
    void DrawBorders(CDC& dc);
    void BeginDrag(POINT place);
    void OnMouseMove(POINT place, bool held);
    void EndDrag();

    std::vector<HWND> m_panes; // row by row
    int m_nColumnBar = kNoBar; // in the user's hand
    int m_nRowBar = kNoBar;
    POINT m_grip; // where the hand holds it
};

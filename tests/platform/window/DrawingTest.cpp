// What a window draws itself, and what stands there afterwards.
#include "TestDialog.h"

#include "platform/window/ImageList.h"
#include "platform/window/PaintDC.h"

#include <QApplication>
#include <QPalette>

namespace
{

constexpr COLORREF kRed = 0x0000FF;
constexpr COLORREF kBlue = 0xFF0000;

class Canvas : public CWnd
{
public:
    std::function<void(CDC&)> m_draw;
    int m_painted = 0;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_PAINT)
            return CWnd::WindowProc(message, wParam, lParam);
        ++m_painted;
        CPaintDC dc(this);
        m_draw(dc);
        return 0;
    }
};

int Brightness(COLORREF color)
{
    return static_cast<int>((color & 0xFF) + (color >> 8 & 0xFF) + (color >> 16 & 0xFF));
}

} // namespace

TEST(Drawing, FindsThePixelsThatStandThereAndDrawsOverThem)
{
    TestDialog dialog;
    Canvas canvas;
    CImageList icons;
    ASSERT_TRUE(icons.Create(16));
    const CImageList before = icons;
    ASSERT_EQ(icons.Add({2}), 0);
    EXPECT_EQ(before.GetImageCount(), 0);
    COLORREF face = 0;
    canvas.m_draw = [&](CDC& dc) {
        face = dc.GetPixel(39, 0);
        if (face == CLR_INVALID)
            return;
        EXPECT_EQ(face, GetSysColor(COLOR_3DFACE));
        EXPECT_EQ(dc.GetPixel(-1000, 0), CLR_INVALID);
        dc.FillSolidRect({0, 0, 40, 20}, kBlue);
        EXPECT_EQ(dc.GetPixel(5, 19), kBlue);
        EXPECT_FALSE(dc.DrawIcon(0, 0, icons.ExtractIcon(9), 16));
        dc.DrawIcon(10, 2, icons.ExtractIcon(0), 16);
        EXPECT_EQ(dc.GetPixel(18, 10), kRed);
    };
    dialog.Open();
    ASSERT_TRUE(canvas.Create("Canvas", {150, 100, 190, 120}, &dialog, 77));
    ASSERT_TRUE(ServeMessagesUntil([&] { return canvas.m_painted > 0; }));
    canvas.SendMessage(WM_PAINT);
    EXPECT_EQ(face, CLR_INVALID) << "outside the toolkit's painting";
}

TEST(Drawing, LinksAreReadableInBrightAndDarkPalettes)
{
    const QPalette before = QApplication::palette();
    for (const char* face : {"#ffffff", "#efefef", "#808080", "#202020", "#000000"})
    {
        const QColor color(face);
        QPalette palette(color, color);
        palette.setColor(QPalette::Link, Qt::blue);
        palette.setColor(QPalette::LinkVisited, Qt::darkMagenta);
        QApplication::setPalette(palette);
        for (const int link : {COLOR_HOTLIGHT, COLOR_VISITEDLINK, COLOR_CAPTIONTEXT})
            EXPECT_GT(std::abs(Brightness(GetSysColor(link)) - Brightness(GetSysColor(COLOR_3DFACE))), 255)
                << face << ' ' << link;
    }
    QApplication::setPalette(before);
    EXPECT_NE(GetSysColor(COLOR_HOTLIGHT), GetSysColor(COLOR_VISITEDLINK));
}

#include "platform/window/DeviceContext_p.h"

#include "platform/window/Creation_p.h"
#include "platform/window/Picture_p.h"
#include "platform/window/QtText_p.h"

#include <QApplication>
#include <QImage>
#include <QPaintEngine>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace
{

// Dark texts on bright faces or the other way round: the palette's roles go together.
QPalette::ColorRole RoleOf(int index)
{
    switch (index)
    {
    case COLOR_WINDOW:
        return QPalette::Base;
    case COLOR_3DSHADOW:
        return QPalette::Dark;
    case COLOR_3DHIGHLIGHT:
        return QPalette::Light;
    case COLOR_CAPTIONTEXT:
    case COLOR_MENUTEXT:
        return QPalette::WindowText;
    case COLOR_GRAYTEXT:
        return QPalette::Text;
    case COLOR_BTNTEXT:
        return QPalette::ButtonText;
    case COLOR_HIGHLIGHT:
        return QPalette::Highlight;
    case COLOR_HIGHLIGHTTEXT:
        return QPalette::HighlightedText;
    default:
        return QPalette::Window;
    }
}

// Between the face and the colour of what is selected: texts of the face read on it, in bright and dark palettes.
QColor InactiveCaption(const QPalette& palette)
{
    const QColor face = palette.color(QPalette::Window);
    const QColor mark = palette.color(QPalette::Highlight);
    return QColor((face.red() + mark.red()) / 2, (face.green() + mark.green()) / 2, (face.blue() + mark.blue()) / 2);
}

// As the rules for readable texts define it, 0 to 1.
double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other)
{
    constexpr double kGlare = 0.05;
    const auto [dark, bright] = std::minmax({Luminance(one), Luminance(other)});
    return (bright + kGlare) / (dark + kGlare);
}

// The colour, brought near that of texts as far as it takes to be read: themes that are dark may leave links dark blue.
QColor ReadableLink(const QPalette& palette, QPalette::ColorRole role)
{
    constexpr double kEnough = 4.5;
    constexpr int kSteps = 10;
    const QColor text = palette.color(QPalette::WindowText);
    const QColor link = palette.color(role);
    for (int step = 0; step < kSteps; ++step)
    {
        const auto mixed = [step](int from, int to) { return from + (to - from) * step / kSteps; };
        const QColor color(mixed(link.red(), text.red()), mixed(link.green(), text.green()),
                           mixed(link.blue(), text.blue()));
        if (Contrast(color, palette.color(QPalette::Window)) >= kEnough)
            return color;
    }
    return text;
}

QColor SystemColor(const QPalette& palette, int index)
{
    switch (index)
    {
    case COLOR_INACTIVECAPTION:
        return InactiveCaption(palette);
    case COLOR_HOTLIGHT:
        return ReadableLink(palette, QPalette::Link);
    case COLOR_VISITEDLINK:
        return ReadableLink(palette, QPalette::LinkVisited);
    case COLOR_GRAYTEXT:
        return palette.color(QPalette::Disabled, RoleOf(index));
    default:
        return palette.color(RoleOf(index));
    }
}

// What a painter draws on, as pixels; null for a device that has none to look at.
QImage PixelsOf(const QPainter& painter)
{
    QPaintDevice* device = painter.paintEngine()->paintDevice();
    if (device && device->devType() == QInternal::Image)
        return *static_cast<QImage*>(device);
    return device && device->devType() == QInternal::Pixmap ? static_cast<QPixmap*>(device)->toImage() : QImage();
}

int AlignmentOf(UINT format)
{
    const int sideways = format & DT_CENTER ? Qt::AlignHCenter : format & DT_RIGHT ? Qt::AlignRight : Qt::AlignLeft;
    return sideways | (format & DT_VCENTER ? Qt::AlignVCenter : Qt::AlignTop);
}

int PrefixesOf(UINT format)
{
    if (format & DT_NOPREFIX)
        return 0;
    return format & DT_HIDEPREFIX ? Qt::TextHideMnemonic : Qt::TextShowMnemonic;
}

// Menus may have a palette of their own.
QPalette PaletteOf(int index)
{
    return index == COLOR_MENU || index == COLOR_MENUTEXT ? QApplication::palette("QMenu") : QApplication::palette();
}

} // namespace

QColor ToolkitColor(COLORREF color)
{
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                  static_cast<int>(color >> 16 & 0xFF));
}

COLORREF DesktopColor(const QColor& color)
{
    return static_cast<COLORREF>(color.red() | color.green() << 8 | color.blue() << 16);
}

COLORREF GetSysColor(int index)
{
    const QPalette palette = PaletteOf(index);
    return DesktopColor(SystemColor(palette, index));
}

CDC::CDC(std::unique_ptr<Surface> surface) : m_surface(std::move(surface))
{}

CDC::~CDC() = default;

bool CDC::Draws() const
{
    return m_surface && m_surface->painter;
}

void CDC::FillSolidRect(const RECT& rect, COLORREF color)
{
    if (Draws())
        m_surface->painter->fillRect(ToolkitRect(rect), ToolkitColor(color));
}

void CDC::Draw3dRect(const RECT& rect, COLORREF topLeft, COLORREF bottomRight)
{
    const LONG right = rect.right - 1;
    const LONG bottom = rect.bottom - 1;
    FillSolidRect({rect.left, rect.top, right, rect.top + 1}, topLeft);
    FillSolidRect({rect.left, rect.top, rect.left + 1, bottom}, topLeft);
    FillSolidRect({right, rect.top, rect.right, rect.bottom}, bottomRight);
    FillSolidRect({rect.left, bottom, rect.right, rect.bottom}, bottomRight);
}

void CDC::DrawText(const std::string& text, const RECT& rect, UINT format)
{
    if (!Draws())
        return;
    const QRect area = ToolkitRect(rect);
    const int flags = PrefixesOf(format) | Qt::TextSingleLine;
    const QString line =
        m_surface->Metrics().elidedText(OneLine(ToolkitText(text)), Qt::ElideRight, area.width(), flags);
    m_surface->painter->drawText(area, AlignmentOf(format) | flags, line);
}

SIZE CDC::GetTextExtent(const std::string& text) const
{
    if (!m_surface)
        return {};
    constexpr int kFlags = Qt::TextShowMnemonic | Qt::TextSingleLine;
    const QSize size = m_surface->Metrics().size(kFlags, OneLine(ToolkitText(text)));
    return {size.width(), size.height()};
}

COLORREF CDC::SetTextColor(COLORREF color)
{
    if (!Draws())
        return CLR_INVALID;
    const COLORREF before = DesktopColor(m_surface->painter->pen().color());
    m_surface->painter->setPen(ToolkitColor(color));
    return before;
}

void CDC::SelectObject(const CFont* font)
{
    if (!Draws() || !font)
        return;
    QFont changed = m_surface->painter->font();
    changed.setUnderline(font->GetLogFont().lfUnderline);
    m_surface->painter->setFont(changed);
}

bool CDC::DrawIcon(int x, int y, HICON icon, int size, bool faint)
{
    const auto picture = LoadPicture(static_cast<int>(icon.resource));
    if (!picture || !Draws())
        return false;
    constexpr double kFaint = 0.4;
    const double before = m_surface->painter->opacity();
    m_surface->painter->setOpacity(faint ? kFaint : before);
    DrawPicture(*m_surface->painter, *picture, QRectF(x, y, size, size), false);
    m_surface->painter->setOpacity(before);
    return true;
}

COLORREF CDC::GetPixel(int x, int y) const
{
    if (!Draws())
        return CLR_INVALID;
    const QImage pixels = PixelsOf(*m_surface->painter);
    const QPoint place = m_surface->painter->deviceTransform().map(QPoint(x, y));
    return pixels.valid(place) ? DesktopColor(pixels.pixelColor(place)) : CLR_INVALID;
}

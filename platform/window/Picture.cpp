#include "platform/window/Picture_p.h"

#include "platform/window/Resource.h"

#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

namespace
{

constexpr int kIconSizes[] = {16, 20, 22, 24, 32, 40, 48, 64, 96, 128, 256};

QPixmap RenderIcon(QSvgRenderer& picture, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    DrawPicture(painter, picture, QRectF(0, 0, size, size), false);
    return pixmap;
}

} // namespace

std::unique_ptr<QSvgRenderer> LoadPicture(int id)
{
    const ResourceTable* resources = AfxGetResources();
    if (!resources)
        return nullptr;
    const auto entry = std::find_if(resources->pictures.begin(), resources->pictures.end(),
                                    [id](const PictureEntry& picture) { return picture.id == id; });
    if (entry == resources->pictures.end())
        return nullptr;
    const QByteArray svg(entry->svg.data(), static_cast<qsizetype>(entry->svg.size()));
    auto renderer = std::make_unique<QSvgRenderer>(svg);
    return renderer->isValid() ? std::move(renderer) : nullptr;
}

QIcon PictureIcon(int id)
{
    QIcon icon;
    if (const auto picture = LoadPicture(id))
    {
        for (const int size : kIconSizes)
        {
            const QPixmap pixmap = RenderIcon(*picture, size);
            icon.addPixmap(pixmap);
            icon.addPixmap(pixmap, QIcon::Selected); // else the style tints it
        }
    }
    return icon;
}

void DrawPicture(QPainter& painter, QSvgRenderer& picture, const QRectF& area, bool cover)
{
    const QSizeF size =
        QSizeF(picture.defaultSize()).scaled(area.size(), cover ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio);
    QRectF target(QPointF(), size);
    target.moveCenter(area.center());
    painter.save();
    painter.setClipRect(area);
    painter.setRenderHint(QPainter::Antialiasing);
    picture.render(&painter, target);
    painter.restore();
}

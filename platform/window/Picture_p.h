// Pictures of the resource table, drawn at the resolution of the device.
#pragma once

#include <QIcon>
#include <QRectF>

class QPainter;
class QSvgRenderer;

// Null renderer if the table has no such picture or it cannot be read.
std::unique_ptr<QSvgRenderer> LoadPicture(int id);

// The picture at every size that desktops ask for; a null icon if there is none.
QIcon PictureIcon(int id);

// Draws the picture in its own proportions in the middle of the area; `cover` cuts off what stands over instead of
// leaving a margin.
void DrawPicture(QPainter& painter, QSvgRenderer& picture, const QRectF& area, bool cover);

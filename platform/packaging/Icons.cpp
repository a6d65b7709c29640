// vantroy_icons: draws a picture at the sizes of an icon theme while the package is built, as the program draws it.
//
// usage: vantroy_icons PICTURE.svg FOLDER SIZE...     makes FOLDER/<size>x<size>/apps/vantroy.png

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace
{

bool DrawIcon(QSvgRenderer& picture, int size, const QDir& theme)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    const QString folder = theme.filePath(QString("%1x%1/apps").arg(size));
    return QDir().mkpath(folder) && image.save(folder + "/vantroy.png");
}

} // namespace

int main(int count, char* arguments[])
{
    QSvgRenderer picture;
    if (count < 4 || !picture.load(QString::fromLocal8Bit(arguments[1])))
    {
        std::fputs("usage: vantroy_icons PICTURE.svg FOLDER SIZE...\n", stderr);
        return 2;
    }
    for (int i = 3; i < count; ++i)
    {
        const int size = QByteArray(arguments[i]).toInt();
        if (size <= 0 || !DrawIcon(picture, size, QDir(QString::fromLocal8Bit(arguments[2]))))
        {
            std::fprintf(stderr, "vantroy_icons: no icon of size %s in %s\n", arguments[i], arguments[2]);
            return 1;
        }
    }
    return 0;
}

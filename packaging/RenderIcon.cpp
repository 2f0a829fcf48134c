#include <QFile>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <cstdlib>

// Draws an SVG file as PNG pictures.
// usage: tintwick_render_icon SVG FOLDER SIDE...
int main(int argc, char** argv)
{
    constexpr int firstSide = 3;
    if (argc <= firstSide) {
        return EXIT_FAILURE;
    }
    QSvgRenderer renderer(QFile::decodeName(argv[1]));
    if (!renderer.isValid()) {
        return EXIT_FAILURE;
    }
    for (int i = firstSide; i < argc; ++i) {
        const QString side = QString::fromLatin1(argv[i]);
        QImage picture(side.toInt(), side.toInt(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        renderer.render(&painter);
        painter.end();
        if (!picture.save(QFile::decodeName(argv[2]) + u'/' + side + QStringLiteral(".png"))) {
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}

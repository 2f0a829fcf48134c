#include "NotifierTypes.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QImage>
#include <QPixmap>
#include <QRgb>
#include <QtEndian>

namespace tintwick {

QList<NotifierPicture> picturesOf(const QIcon& icon)
{
    QList<NotifierPicture> pictures;
    for (const QSize& size : icon.availableSizes()) {
        const QImage image = icon.pixmap(size, 1).toImage().convertToFormat(QImage::Format_ARGB32);
        QByteArray pixels;
        pixels.reserve(image.sizeInBytes());
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = qToBigEndian(image.pixel(x, y));
                pixels.append(reinterpret_cast<const char*>(&pixel), sizeof(pixel));
            }
        }
        pictures.append({image.width(), image.height(), pixels});
    }
    return pictures;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPicture& picture)
{
    argument.beginStructure();
    argument << picture.width << picture.height << picture.pixels;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPicture& picture)
{
    argument.beginStructure();
    argument >> picture.width >> picture.height >> picture.pixels;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip)
{
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.pictures << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip)
{
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.pictures >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

void registerNotifierTypes()
{
    qDBusRegisterMetaType<NotifierPicture>();
    qDBusRegisterMetaType<QList<NotifierPicture>>();
    qDBusRegisterMetaType<NotifierToolTip>();
}

} // namespace tintwick

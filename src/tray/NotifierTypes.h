#pragma once

#include <QByteArray>
#include <QIcon>
#include <QList>
#include <QMetaType>
#include <QString>

class QDBusArgument;

namespace tintwick {

// Properties of org.kde.StatusNotifierItem.

/// (iiay): a picture, its pixels from the top left in the byte order alpha, red, green, blue, not premultiplied.
struct NotifierPicture
{
    int width = 0;
    int height = 0;
    QByteArray pixels;
};

/// (sa(iiay)ss).
struct NotifierToolTip
{
    QString iconName;
    QList<NotifierPicture> pictures;
    QString title;
    QString text;
};

/// The icon in all its sizes.
[[nodiscard]] QList<NotifierPicture> picturesOf(const QIcon& icon);

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPicture& picture);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPicture& picture);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip);

/// Call before one of the types is sent or received.
void registerNotifierTypes();

} // namespace tintwick

Q_DECLARE_METATYPE(tintwick::NotifierPicture)
Q_DECLARE_METATYPE(tintwick::NotifierToolTip)

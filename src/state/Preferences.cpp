#include "Preferences.h"

#include <QAnyStringView>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QVariant>

namespace tintwick::preferences {

namespace {

constexpr QAnyStringView colorSchemeKey = u"colorSchemePref";
constexpr QAnyStringView scopeShapeKey = u"scopeShape";
constexpr QAnyStringView scopePhysicalSizeKey = u"scopePhysicalSize";
constexpr QAnyStringView scopeDefaultRadiusKey = u"scopeDefaultRadius";

/// $XDG_CONFIG_HOME/Tintwick/Tintwick.conf; made anew for every access, so that it sees what others wrote
/// meanwhile.
class Store final
{
public:
    Store()
    {
        // A value for all users of the machine is not a choice of this one.
        m_settings.setFallbacksEnabled(false);
    }

    [[nodiscard]] QVariant value(QAnyStringView key) const { return m_settings.value(key); }

    void setValue(QAnyStringView key, const QVariant& value)
    {
        m_settings.setValue(key, value);
        m_settings.sync();
    }

private:
    QSettings m_settings{QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Tintwick"),
                         QStringLiteral("Tintwick")};
};

/// The text under a key; empty when there is none or the value is no text.
QString storedText(QAnyStringView key)
{
    const QVariant value = Store().value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

/// The integer under a key; 0 when there is none, the value is no integer or does not fit.
int storedInteger(QAnyStringView key)
{
    const QVariant value = Store().value(key);
    switch (value.typeId()) {
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::QString:
        // From the file an integer comes as its text. QVariant itself would cut a larger one down to some
        // other int.
        return value.toString().toInt();
    default:
        return 0;
    }
}

} // namespace

void removeAbandonedLock()
{
    const QSettings settings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Tintwick"),
                             QStringLiteral("Tintwick"));
    const QFileInfo lock(settings.fileName() + QStringLiteral(".lock"));
    constexpr qint64 second = 1000;
    const bool isAbandoned = lock.exists() && lock.size() == 0 &&
                             lock.lastModified().msecsTo(QDateTime::currentDateTime()) > second;
    if (isAbandoned) {
        QFile::remove(lock.filePath());
    }
}

ColorSchemePref colorScheme()
{
    const QString text = storedText(colorSchemeKey);
    for (const ColorSchemePref scheme : {ColorSchemePref::Light, ColorSchemePref::Dark}) {
        if (text == rawValue(scheme)) {
            return scheme;
        }
    }
    return ColorSchemePref::Auto;
}

void setColorScheme(ColorSchemePref scheme)
{
    Store().setValue(colorSchemeKey, rawValue(scheme));
}

QString rawValue(ColorSchemePref scheme)
{
    switch (scheme) {
    case ColorSchemePref::Auto:
        return QStringLiteral("auto");
    case ColorSchemePref::Light:
        return QStringLiteral("light");
    case ColorSchemePref::Dark:
        return QStringLiteral("dark");
    }
    Q_UNREACHABLE();
}

ColorSchemePref nextColorScheme(ColorSchemePref scheme)
{
    switch (scheme) {
    case ColorSchemePref::Auto:
        return ColorSchemePref::Light;
    case ColorSchemePref::Light:
        return ColorSchemePref::Dark;
    case ColorSchemePref::Dark:
        return ColorSchemePref::Auto;
    }
    Q_UNREACHABLE();
}

bool scopeIsCircle()
{
    return storedText(scopeShapeKey) == u"circle";
}

void setScopeShape(const QString& shape)
{
    Store().setValue(scopeShapeKey, shape);
}

double scopeSide()
{
    const QString size = storedText(scopePhysicalSizeKey);
    if (size == u"small") {
        return 100;
    }
    if (size == u"large") {
        return 160;
    }
    return 130;
}

void setScopePhysicalSize(const QString& size)
{
    Store().setValue(scopePhysicalSizeKey, size);
}

int scopeDefaultRadius()
{
    const int radius = storedInteger(scopeDefaultRadiusKey);
    return radius >= 1 ? radius : 7;
}

void setScopeDefaultRadius(int radius)
{
    Store().setValue(scopeDefaultRadiusKey, radius);
}

} // namespace tintwick::preferences

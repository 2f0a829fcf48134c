#include "Preferences.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QVariant>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr QAnyStringView colorSchemeKey = u"colorSchemePref";
constexpr QAnyStringView loupeShapeKey = u"scopeShape";
constexpr QAnyStringView loupeSizeKey = u"scopePhysicalSize";
constexpr QAnyStringView loupeRadiusKey = u"scopeDefaultRadius";
constexpr QAnyStringView keyNamesKey = u"keyNames";
constexpr QLatin1StringView shortcutPrefix("KeyboardShortcuts_");

// The stored words of an enumeration, in its order.
constexpr std::array colorSchemeWords{"auto"_L1, "light"_L1, "dark"_L1};
constexpr std::array loupeShapeWords{"square"_L1, "circle"_L1};
constexpr std::array loupeSizeWords{"small"_L1, "medium"_L1, "large"_L1};
constexpr std::array keyNamesWords{"signs"_L1, "words"_L1};

template <typename Enum, std::size_t N>
QString wordOf(Enum value, const std::array<QLatin1StringView, N>& words)
{
    return words.at(static_cast<std::size_t>(value));
}

template <typename Enum, std::size_t N>
Enum valueOf(const QVariant& stored, const std::array<QLatin1StringView, N>& words, Enum fallback)
{
    if (stored.typeId() != QMetaType::QString) {
        return fallback;
    }
    const auto found = std::ranges::find(words, stored.toString());
    return found == words.end() ? fallback : static_cast<Enum>(found - words.begin());
}

int radiusOf(const QVariant& stored)
{
    // The file gives an integer as text. QVariant::toInt() would truncate a larger integer.
    const bool isReadable = stored.typeId() == QMetaType::Int || stored.typeId() == QMetaType::QString;
    const int radius = isReadable ? stored.toString().toInt() : 0;
    return radius >= 1 ? radius : defaultLoupeRadius;
}

} // namespace

ColorSchemeChoice next(ColorSchemeChoice choice)
{
    const auto position = static_cast<std::size_t>(choice) + 1;
    return static_cast<ColorSchemeChoice>(position % colorSchemeWords.size());
}

QString storedWord(ColorSchemeChoice choice)
{
    return wordOf(choice, colorSchemeWords);
}

Preferences::Preferences(QObject* parent)
    : QObject(parent)
    , m_settings(QSettings::NativeFormat, QSettings::UserScope, u"Tintwick"_s, u"Tintwick"_s)
{
    start();
}

Preferences::Preferences(const QString& path, QObject* parent)
    : QObject(parent)
    , m_settings(path, QSettings::NativeFormat)
{
    start();
}

void Preferences::start()
{
    removeAbandonedLock();
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &Preferences::readAgain);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &Preferences::readAgain);
    readAgain();
}

void Preferences::removeAbandonedLock() const
{
    const QFileInfo lock(m_settings.fileName() + u".lock"_s);
    constexpr qint64 second = 1000;
    const bool isAbandoned = lock.exists() && lock.size() == 0 &&
                             lock.lastModified().msecsTo(QDateTime::currentDateTime()) > second;
    if (isAbandoned) {
        QFile::remove(lock.filePath());
    }
}

// Watches the file and its folder, or the nearest folder above that exists. The folder reports a file that is created,
// removed or replaced; the file reports a change in place.
void Preferences::watchFile()
{
    const QString path = m_settings.fileName();
    QString folder = QFileInfo(path).absolutePath();
    while (!QFileInfo::exists(folder)) {
        folder = QFileInfo(folder).absolutePath();
    }
    QStringList others = m_watcher.directories();
    if (others.removeAll(folder) == 0) {
        m_watcher.addPath(folder);
    }
    // The file is watched anew each time, because another file may have its name now.
    others.append(m_watcher.files());
    if (!others.isEmpty()) {
        m_watcher.removePaths(others);
    }
    if (QFileInfo::exists(path)) {
        m_watcher.addPath(path);
    }
}

void Preferences::readAgain()
{
    // Watches first, so that no change after the reading is missed.
    watchFile();
    m_settings.sync();
    signalChanges(std::exchange(m_values, storedValues()));
}

Preferences::Values Preferences::storedValues() const
{
    const Values defaults;
    Values values{
        .colorScheme = valueOf(m_settings.value(colorSchemeKey), colorSchemeWords, defaults.colorScheme),
        .loupeShape = valueOf(m_settings.value(loupeShapeKey), loupeShapeWords, defaults.loupeShape),
        .loupeSize = valueOf(m_settings.value(loupeSizeKey), loupeSizeWords, defaults.loupeSize),
        .loupeRadius = radiusOf(m_settings.value(loupeRadiusKey)),
        .keyNames = valueOf(m_settings.value(keyNamesKey), keyNamesWords, defaults.keyNames),
        .shortcutTexts = {},
    };
    for (const QString& key : m_settings.allKeys()) {
        if (key.startsWith(shortcutPrefix)) {
            const QVariant value = m_settings.value(key);
            values.shortcutTexts.insert(key.sliced(shortcutPrefix.size()),
                                        value.typeId() == QMetaType::QString ? value.toString() : QString());
        }
    }
    return values;
}

void Preferences::signalChanges(const Values& before)
{
    const Values now = m_values;
    if (now.colorScheme != before.colorScheme) {
        Q_EMIT colorSchemeChanged();
    }
    if (now.loupeShape != before.loupeShape || now.loupeSize != before.loupeSize ||
        now.loupeRadius != before.loupeRadius) {
        Q_EMIT loupeChanged();
    }
    if (now.keyNames != before.keyNames) {
        Q_EMIT keyNamesChanged();
    }
    QMap<QString, QString> either = before.shortcutTexts;
    either.insert(now.shortcutTexts);
    for (auto each = either.cbegin(); each != either.cend(); ++each) {
        const QString& name = each.key();
        if (before.shortcutTexts.contains(name) != now.shortcutTexts.contains(name) ||
            before.shortcutTexts.value(name) != now.shortcutTexts.value(name)) {
            Q_EMIT shortcutChanged(name);
        }
    }
}

void Preferences::store(QAnyStringView key, const QVariant& value)
{
    const QVariant stored = m_settings.value(key);
    const bool isText = stored.typeId() == QMetaType::QString || stored.typeId() == value.typeId();
    if (isText && stored.toString() == value.toString()) {
        return;
    }
    m_settings.setValue(key, value);
    readAgain();
}

void Preferences::setColorScheme(ColorSchemeChoice choice)
{
    store(colorSchemeKey, wordOf(choice, colorSchemeWords));
}

void Preferences::setLoupeShape(LoupeShape shape)
{
    store(loupeShapeKey, wordOf(shape, loupeShapeWords));
}

void Preferences::setLoupeSize(LoupeSize size)
{
    store(loupeSizeKey, wordOf(size, loupeSizeWords));
}

void Preferences::setLoupeRadius(int radius)
{
    store(loupeRadiusKey, radius);
}

void Preferences::setKeyNames(KeyNames names)
{
    store(keyNamesKey, wordOf(names, keyNamesWords));
}

std::optional<QString> Preferences::shortcutText(const QString& name) const
{
    const auto found = m_values.shortcutTexts.constFind(name);
    return found == m_values.shortcutTexts.cend() ? std::nullopt : std::optional(*found);
}

void Preferences::setShortcutText(const QString& name, const std::optional<QString>& text)
{
    const QString key = shortcutPrefix + name;
    if (text) {
        store(key, *text);
    } else if (m_settings.contains(key)) {
        m_settings.remove(key);
        readAgain();
    }
}

} // namespace tintwick

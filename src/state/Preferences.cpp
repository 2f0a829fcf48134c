#include "Preferences.h"

#include "FileDescriptor.h"
#include "PrivateFolder.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr QAnyStringView colorSchemeKey = u"colorSchemePref";
constexpr QAnyStringView loupeShapeKey = u"scopeShape";
constexpr QAnyStringView loupeSizeKey = u"scopePhysicalSize";
constexpr QAnyStringView loupeRadiusKey = u"scopeDefaultRadius";
constexpr QAnyStringView loupeCaptionKey = u"scopeCaption";
constexpr QAnyStringView keyNamesKey = u"keyNames";
constexpr QAnyStringView repeatedPickKey = u"repeatedPick";
constexpr QAnyStringView editorModelKey = u"editorModel";
constexpr QLatin1StringView shortcutPrefix("KeyboardShortcuts_");

// The stored words of an enumeration, in its order.
constexpr std::array colorSchemeWords{"auto"_L1, "light"_L1, "dark"_L1};
constexpr std::array loupeShapeWords{"square"_L1, "circle"_L1};
constexpr std::array loupeSizeWords{"small"_L1, "medium"_L1, "large"_L1};
constexpr std::array loupeCaptionWords{"name"_L1, "text"_L1, "both"_L1};
constexpr std::array keyNamesWords{"signs"_L1, "words"_L1};
constexpr std::array repeatedPickWords{"add"_L1, "move"_L1};
constexpr std::array editorModelWords{"oklch"_L1, "hsl"_L1};

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

/// Creates the file and its folder for the user only, if they are missing. QSettings keeps the mode of a file. A failure
/// shows when the file is written.
void createPrivateFile(const QString& path)
{
    static_cast<void>(makePrivateFolder(QFileInfo(path).path()));
    const FileDescriptor file(::open(QFile::encodeName(path).constData(),
                                     O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
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
    : Preferences(
          pathOfUser(),
          [] {
              return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, u"Tintwick"_s,
                                                 u"Tintwick"_s);
          },
          parent)
{
}

QString Preferences::pathOfUser()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/Tintwick/Tintwick.conf"_s;
}

Preferences::Preferences(const QString& path, QObject* parent)
    : Preferences(
          path, [path] { return std::make_unique<QSettings>(path, QSettings::NativeFormat); }, parent)
{
}

Preferences::Preferences(QString path, Open open, QObject* parent)
    : QObject(parent)
    , m_path(std::move(path))
    , m_open(std::move(open))
{
    removeAbandonedLock();
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &Preferences::readAgain);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &Preferences::readAgain);
    readAgain();
}

QString Preferences::folder() const
{
    return QFileInfo(m_path).absolutePath();
}

QVariant Preferences::storedValue(QAnyStringView key) const
{
    return m_settings ? m_settings->value(key) : QVariant();
}

void Preferences::setProblem(const QString& problem)
{
    if (m_problem != problem) {
        m_problem = problem;
        Q_EMIT problemChanged();
    }
}

void Preferences::openOrClose()
{
    const QFileInfo file(m_path);
    const bool isFree = !file.exists() || file.isFile();
    if (!isFree) {
        m_settings.reset();
        setProblem(tr("Preferences are not saved: %1 is not a file").arg(file.fileName()));
    } else if (!m_settings) {
        m_settings = m_open();
        setProblem({});
    }
}

QString Preferences::lockPath() const
{
    return m_path + u".lock"_s;
}

void Preferences::removeAbandonedLock() const
{
    const QFileInfo lock(lockPath());
    constexpr qint64 second = 1000;
    // The time may be in the future, after the clock was set.
    const bool isAbandoned = lock.isFile() && lock.size() == 0 &&
                             std::abs(lock.lastModified().msecsTo(QDateTime::currentDateTime())) > second;
    if (isAbandoned) {
        QFile::remove(lock.filePath());
    }
}

bool Preferences::canLock() const
{
    const QFileInfo file(lockPath());
    if (!file.exists() && !file.isSymLink()) {
        return true;
    }
    // Reading the owner from a pipe would wait for ever.
    if (!file.isFile()) {
        return false;
    }
    constexpr int patience = 1100; // milliseconds
    QLockFile lock(lockPath());
    if (!lock.tryLock(patience)) {
        removeAbandonedLock();
    }
    return lock.isLocked() || !QFileInfo::exists(lockPath());
}

void Preferences::write(const std::function<void(QSettings&)>& change)
{
    openOrClose();
    if (!m_settings) {
        return;
    }
    if (!canLock()) {
        setProblem(
            tr("Preferences are not saved: another program holds %1").arg(QFileInfo(lockPath()).fileName()));
        return;
    }
    createPrivateFile(m_path);
    if (m_settings->status() == QSettings::AccessError) {
        // The status of an earlier failure stays until the object is replaced.
        m_settings = m_open();
    }
    change(*m_settings);
    readAgain();
    if (m_settings) {
        const bool isWritten = m_settings->status() != QSettings::AccessError;
        setProblem(
            isWritten
                ? QString()
                : tr("Preferences are not saved: %1 cannot be written").arg(QFileInfo(m_path).fileName()));
    }
}

// Watches the file and its folder, or the nearest folder above that exists. The folder reports a file that is created,
// removed or replaced; the file reports a change in place.
void Preferences::watchFile()
{
    QString folder = this->folder();
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
    if (QFileInfo::exists(m_path)) {
        m_watcher.addPath(m_path);
    }
}

void Preferences::readAgain()
{
    // Watches first, so that no change after the reading is missed.
    watchFile();
    openOrClose();
    if (m_settings) {
        m_settings->sync();
    }
    signalChanges(std::exchange(m_values, storedValues()));
}

Preferences::Values Preferences::storedValues() const
{
    const Values defaults;
    Values values{
        .colorScheme = valueOf(storedValue(colorSchemeKey), colorSchemeWords, defaults.colorScheme),
        .loupeShape = valueOf(storedValue(loupeShapeKey), loupeShapeWords, defaults.loupeShape),
        .loupeSize = valueOf(storedValue(loupeSizeKey), loupeSizeWords, defaults.loupeSize),
        .loupeRadius = radiusOf(storedValue(loupeRadiusKey)),
        .loupeCaption = valueOf(storedValue(loupeCaptionKey), loupeCaptionWords, defaults.loupeCaption),
        .keyNames = valueOf(storedValue(keyNamesKey), keyNamesWords, defaults.keyNames),
        .repeatedPick = valueOf(storedValue(repeatedPickKey), repeatedPickWords, defaults.repeatedPick),
        .editorModel = valueOf(storedValue(editorModelKey), editorModelWords, defaults.editorModel),
        .shortcutTexts = {},
    };
    for (const QString& key : m_settings ? m_settings->allKeys() : QStringList()) {
        if (key.startsWith(shortcutPrefix)) {
            const QVariant value = storedValue(key);
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
        now.loupeRadius != before.loupeRadius || now.loupeCaption != before.loupeCaption) {
        Q_EMIT loupeChanged();
    }
    if (now.keyNames != before.keyNames) {
        Q_EMIT keyNamesChanged();
    }
    if (now.repeatedPick != before.repeatedPick) {
        Q_EMIT repeatedPickChanged();
    }
    if (now.editorModel != before.editorModel) {
        Q_EMIT editorModelChanged();
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
    const QVariant stored = storedValue(key);
    const bool isText = stored.typeId() == QMetaType::QString || stored.typeId() == value.typeId();
    if (isText && stored.toString() == value.toString()) {
        return;
    }
    write([&](QSettings& settings) { settings.setValue(key, value); });
}

void Preferences::setColorScheme(ColorSchemeChoice choice)
{
    store(colorSchemeKey, wordOf(choice, colorSchemeWords));
}

void Preferences::setLoupeCaption(LoupeCaption caption)
{
    store(loupeCaptionKey, wordOf(caption, loupeCaptionWords));
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

void Preferences::setRepeatedPick(RepeatedPick effect)
{
    store(repeatedPickKey, wordOf(effect, repeatedPickWords));
}

void Preferences::setEditorModel(EditorModel model)
{
    store(editorModelKey, wordOf(model, editorModelWords));
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
    } else if (m_settings && m_settings->contains(key)) {
        write([&key](QSettings& settings) { settings.remove(key); });
    }
}

} // namespace tintwick

#include "Preferences.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <optional>

#include <sys/stat.h>

namespace tintwick {

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class PreferencesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void defaultsAreUsedWhenNothingIsStored();
    void loupeSizesHaveSidesInPoints();
    void storedValuesAreRead_data();
    void storedValuesAreRead();
    void theCaptionOfTheLoupeIsRead_data();
    void theCaptionOfTheLoupeIsRead();
    void aValueOfAnotherTypeGivesTheDefault_data();
    void aValueOfAnotherTypeGivesTheDefault();
    void setValuesAreWrittenAtOnce();
    void namesOfKeysAreReadAndWritten();
    void theEffectOfARepeatedPickIsReadAndWritten();
    void theNumbersOfTheEditorAreReadAndWritten();
    void writtenValuesAreReadBack();
    void settingTheStoredValueDoesNotWrite();
    void eachChangeIsSignalledOnce();
    void appearancesCycle();
    void anUnknownAppearanceCyclesToLight();
    void anUnknownWordIsKept();
    void theSystemWideFileIsAFallbackForEveryKey();
    void shortcutTextsAreStoredByName();
    void anEditFromOutsideIsNoticed_data();
    void anEditFromOutsideIsNoticed();
    void aFolderThatIsCreatedLaterIsNoticed();
    void eachOfSeveralEditsIsNoticed();
    void aGetterReadsNoFile();
    void onlyAnOldEmptyLockIsRemoved_data();
    void onlyAnOldEmptyLockIsRemoved();
    void aLockThatStaysIsReported_data();
    void aLockThatStaysIsReported();
    void folderAndFileArePrivate();
    void anythingButAFileIsNotOpened_data();
    void anythingButAFileIsNotOpened();
    void aFileThatCannotBeWrittenIsTold();

private:
    void store(const QByteArray& lines);
    [[nodiscard]] QSettings systemSettings() const;

    // QSettings determines its folders once per process, so all tests share them.
    QTemporaryDir m_configHome;
    QTemporaryDir m_systemConfig;
    QString m_path;
    QDateTime m_writtenAt = QDateTime::currentDateTimeUtc();
};

void PreferencesTest::initTestCase()
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_configHome.path()));
    QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, m_systemConfig.path());
    m_path = m_configHome.filePath(QStringLiteral("Tintwick/Tintwick.conf"));
}

void PreferencesTest::init()
{
    QFile::remove(m_path);
    QSettings settings = systemSettings();
    settings.clear();
    settings.sync();
}

QSettings PreferencesTest::systemSettings() const
{
    return {QSettings::NativeFormat, QSettings::SystemScope, QStringLiteral("Tintwick"),
            QStringLiteral("Tintwick")};
}

void PreferencesTest::store(const QByteArray& lines)
{
    QDir(m_configHome.path()).mkpath(QStringLiteral("Tintwick"));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[General]\n" + lines + '\n');
    // QSettings detects changed files by size and time. Two rows can be written within one tick of the file system's
    // clock.
    m_writtenAt = m_writtenAt.addSecs(1);
    QVERIFY(file.flush() && file.setFileTime(m_writtenAt, QFileDevice::FileModificationTime));
}

void PreferencesTest::defaultsAreUsedWhenNothingIsStored()
{
    const Preferences preferences;
    QCOMPARE(preferences.colorScheme(), ColorSchemeChoice::Auto);
    QCOMPARE(preferences.loupeShape(), LoupeShape::Square);
    QCOMPARE(preferences.loupeSize(), LoupeSize::Medium);
    QCOMPARE(preferences.loupeRadius(), 7);
    QCOMPARE(preferences.shortcutText(QStringLiteral("any")), std::nullopt);
    QVERIFY(!QFile::exists(m_path));
}

void PreferencesTest::loupeSizesHaveSidesInPoints()
{
    QCOMPARE(loupeSide(LoupeSize::Small), 100.0);
    QCOMPARE(loupeSide(LoupeSize::Medium), 130.0);
    QCOMPARE(loupeSide(LoupeSize::Large), 160.0);
}

void PreferencesTest::storedValuesAreRead_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<ColorSchemeChoice>("scheme");
    QTest::addColumn<bool>("circle");
    QTest::addColumn<double>("side");
    QTest::addColumn<int>("radius");
    const auto scheme = [](const char* line, ColorSchemeChoice expected) {
        QTest::newRow(line) << QByteArray(line) << expected << false << 130.0 << 7;
    };
    const auto shape = [](const char* line, bool circle) {
        QTest::newRow(line) << QByteArray(line) << ColorSchemeChoice::Auto << circle << 130.0 << 7;
    };
    const auto size = [](const char* line, double side) {
        QTest::newRow(line) << QByteArray(line) << ColorSchemeChoice::Auto << false << side << 7;
    };
    const auto radius = [](const char* line, int expected) {
        QTest::newRow(line) << QByteArray(line) << ColorSchemeChoice::Auto << false << 130.0 << expected;
    };
    scheme("colorSchemePref=auto", ColorSchemeChoice::Auto);
    scheme("colorSchemePref=light", ColorSchemeChoice::Light);
    scheme("colorSchemePref=dark", ColorSchemeChoice::Dark);
    scheme("colorSchemePref=Dark", ColorSchemeChoice::Auto);
    scheme("colorSchemePref=sepia", ColorSchemeChoice::Auto);
    scheme("colorSchemePref=", ColorSchemeChoice::Auto);
    scheme("colorSchemePref=dark, light", ColorSchemeChoice::Auto);
    scheme("colorSchemePref=@ByteArray(dark)", ColorSchemeChoice::Auto);
    shape("scopeShape=circle", true);
    shape("scopeShape=square", false);
    shape("scopeShape=Circle", false);
    shape("scopeShape=true", false);
    shape("scopeShape=1", false);
    shape("scopeShape=@ByteArray(circle)", false);
    size("scopePhysicalSize=small", 100);
    size("scopePhysicalSize=medium", 130);
    size("scopePhysicalSize=large", 160);
    size("scopePhysicalSize=huge", 130);
    size("scopePhysicalSize=Large", 130);
    size("scopePhysicalSize=160", 130);
    radius("scopeDefaultRadius=4", 4);
    radius("scopeDefaultRadius=7", 7);
    radius("scopeDefaultRadius=11", 11);
    radius("scopeDefaultRadius=1", 1);
    radius("scopeDefaultRadius=40", 40);
    radius("scopeDefaultRadius=2147483647", 2147483647);
    radius("scopeDefaultRadius=0", 7);
    radius("scopeDefaultRadius=-4", 7);
    radius("scopeDefaultRadius=99999999999", 7);
    radius("scopeDefaultRadius=far", 7);
    radius("scopeDefaultRadius=11px", 7);
    radius("scopeDefaultRadius=true", 7);
    radius("scopeDefaultRadius=11.5", 7);
    radius("scopeDefaultRadius=", 7);
    radius("scopeDefaultRadius=4, 11", 7);
}

void PreferencesTest::storedValuesAreRead()
{
    QFETCH(QByteArray, line);
    QFETCH(ColorSchemeChoice, scheme);
    QFETCH(bool, circle);
    QFETCH(double, side);
    QFETCH(int, radius);
    store(line);
    const Preferences preferences;
    QCOMPARE(preferences.colorScheme(), scheme);
    QCOMPARE(preferences.loupeShape() == LoupeShape::Circle, circle);
    QCOMPARE(loupeSide(preferences.loupeSize()), side);
    QCOMPARE(preferences.loupeRadius(), radius);
}

void PreferencesTest::theCaptionOfTheLoupeIsRead_data()
{
    QTest::addColumn<LoupeCaption>("caption");
    QTest::newRow("scopeCaption=name") << LoupeCaption::Name;
    QTest::newRow("scopeCaption=text") << LoupeCaption::Text;
    QTest::newRow("scopeCaption=both") << LoupeCaption::Both;
    QTest::newRow("scopeCaption=Both") << LoupeCaption::Name;
    QTest::newRow("scopeCaption=none") << LoupeCaption::Name;
}

void PreferencesTest::theCaptionOfTheLoupeIsRead()
{
    store(QTest::currentDataTag());
    const Preferences preferences;
    QTEST(preferences.loupeCaption(), "caption");
}

void PreferencesTest::aValueOfAnotherTypeGivesTheDefault_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("a fraction") << QVariant(11.5);
    QTest::newRow("bytes") << QVariant(QByteArray("dark"));
    QTest::newRow("a list") << QVariant(QStringList{QStringLiteral("dark"), QStringLiteral("11")});
    QTest::newRow("nothing") << QVariant();
}

void PreferencesTest::aValueOfAnotherTypeGivesTheDefault()
{
    QFETCH(QVariant, value);
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Tintwick"),
                       QStringLiteral("Tintwick"));
    for (const char* key : {"colorSchemePref", "scopeShape", "scopePhysicalSize", "scopeDefaultRadius"}) {
        settings.setValue(QLatin1StringView(key), value);
    }
    settings.sync();
    const Preferences preferences;
    QCOMPARE(preferences.colorScheme(), ColorSchemeChoice::Auto);
    QCOMPARE(preferences.loupeShape(), LoupeShape::Square);
    QCOMPARE(preferences.loupeSize(), LoupeSize::Medium);
    QCOMPARE(preferences.loupeRadius(), 7);
}

void PreferencesTest::setValuesAreWrittenAtOnce()
{
    Preferences preferences;
    preferences.setColorScheme(ColorSchemeChoice::Dark);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=dark\n"));
    preferences.setLoupeRadius(11);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=dark\nscopeDefaultRadius=11\n"));
}

void PreferencesTest::namesOfKeysAreReadAndWritten()
{
    Preferences preferences;
    QCOMPARE(preferences.keyNames(), KeyNames::Signs);
    const QSignalSpy changes(&preferences, &Preferences::keyNamesChanged);
    preferences.setKeyNames(KeyNames::Words);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\nkeyNames=words\n"));
    QCOMPARE(Preferences().keyNames(), KeyNames::Words);
    preferences.setKeyNames(KeyNames::Signs);
    QCOMPARE(preferences.keyNames(), KeyNames::Signs);
    QCOMPARE(changes.count(), 2);
}

void PreferencesTest::theEffectOfARepeatedPickIsReadAndWritten()
{
    Preferences preferences;
    QCOMPARE(preferences.repeatedPick(), RepeatedPick::Add);
    const QSignalSpy changes(&preferences, &Preferences::repeatedPickChanged);
    preferences.setRepeatedPick(RepeatedPick::Move);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\nrepeatedPick=move\n"));
    QCOMPARE(Preferences().repeatedPick(), RepeatedPick::Move);
    preferences.setRepeatedPick(RepeatedPick::Add);
    QCOMPARE(preferences.repeatedPick(), RepeatedPick::Add);
    QCOMPARE(changes.count(), 2);
}

void PreferencesTest::theNumbersOfTheEditorAreReadAndWritten()
{
    Preferences preferences;
    QCOMPARE(preferences.editorModel(), EditorModel::Oklch);
    const QSignalSpy changes(&preferences, &Preferences::editorModelChanged);
    preferences.setEditorModel(EditorModel::Hsl);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\neditorModel=hsl\n"));
    QCOMPARE(Preferences().editorModel(), EditorModel::Hsl);
    preferences.setEditorModel(EditorModel::Oklch);
    QCOMPARE(preferences.editorModel(), EditorModel::Oklch);
    QCOMPARE(changes.count(), 2);
}

void PreferencesTest::writtenValuesAreReadBack()
{
    Preferences preferences;
    preferences.setColorScheme(ColorSchemeChoice::Light);
    preferences.setLoupeShape(LoupeShape::Circle);
    preferences.setLoupeSize(LoupeSize::Large);
    preferences.setLoupeRadius(4);
    QCOMPARE(preferences.colorScheme(), ColorSchemeChoice::Light);
    QCOMPARE(preferences.loupeShape(), LoupeShape::Circle);
    QCOMPARE(preferences.loupeSize(), LoupeSize::Large);
    QCOMPARE(preferences.loupeRadius(), 4);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=light\nscopeDefaultRadius=4\n"
                                           "scopePhysicalSize=large\nscopeShape=circle\n"));

    preferences.setLoupeShape(LoupeShape::Square);
    preferences.setLoupeSize(LoupeSize::Small);
    preferences.setLoupeRadius(-1);
    QCOMPARE(preferences.loupeShape(), LoupeShape::Square);
    QCOMPARE(preferences.loupeSize(), LoupeSize::Small);
    QCOMPARE(preferences.loupeRadius(), 7);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=light\nscopeDefaultRadius=-1\n"
                                           "scopePhysicalSize=small\nscopeShape=square\n"));
}

void PreferencesTest::settingTheStoredValueDoesNotWrite()
{
    store("colorSchemePref=dark\nscopeDefaultRadius=11");
    const QDateTime written = QFileInfo(m_path).lastModified();
    Preferences preferences;
    preferences.setColorScheme(ColorSchemeChoice::Dark);
    preferences.setLoupeRadius(11);
    preferences.setShortcutText(QStringLiteral("none"), std::nullopt);
    QCOMPARE(QFileInfo(m_path).lastModified(), written);
}

void PreferencesTest::eachChangeIsSignalledOnce()
{
    Preferences preferences;
    const QSignalSpy scheme(&preferences, &Preferences::colorSchemeChanged);
    const QSignalSpy loupe(&preferences, &Preferences::loupeChanged);
    const QSignalSpy shortcut(&preferences, &Preferences::shortcutChanged);
    preferences.setColorScheme(ColorSchemeChoice::Dark);
    preferences.setColorScheme(ColorSchemeChoice::Dark);
    QCOMPARE(scheme.count(), 1);
    preferences.setLoupeShape(LoupeShape::Circle);
    preferences.setLoupeSize(LoupeSize::Large);
    preferences.setLoupeRadius(4);
    preferences.setLoupeRadius(4);
    QCOMPARE(loupe.count(), 3);
    preferences.setShortcutText(QStringLiteral("pick"), QStringLiteral("{}"));
    preferences.setShortcutText(QStringLiteral("pick"), QStringLiteral("{}"));
    preferences.setShortcutText(QStringLiteral("pick"), std::nullopt);
    QCOMPARE(shortcut.count(), 2);
    QCOMPARE(shortcut.first().first().toString(), QStringLiteral("pick"));
    // The watcher reports these writes again. They change nothing.
    QCoreApplication::processEvents();
    QCOMPARE(scheme.count() + loupe.count() + shortcut.count(), 6);
}

void PreferencesTest::appearancesCycle()
{
    QCOMPARE(next(ColorSchemeChoice::Auto), ColorSchemeChoice::Light);
    QCOMPARE(next(ColorSchemeChoice::Light), ColorSchemeChoice::Dark);
    QCOMPARE(next(ColorSchemeChoice::Dark), ColorSchemeChoice::Auto);
}

void PreferencesTest::anUnknownAppearanceCyclesToLight()
{
    store("colorSchemePref=sepia");
    Preferences preferences;
    preferences.setColorScheme(next(preferences.colorScheme()));
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=light\n"));
}

void PreferencesTest::anUnknownWordIsKept()
{
    store("colorSchemePref=sepia\nscopePhysicalSize=huge");
    Preferences preferences;
    preferences.setLoupeShape(LoupeShape::Circle);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=sepia\nscopePhysicalSize=huge\n"
                                           "scopeShape=circle\n"));
    preferences.setLoupeSize(LoupeSize::Medium);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=sepia\nscopePhysicalSize=medium\n"
                                           "scopeShape=circle\n"));
}

void PreferencesTest::theSystemWideFileIsAFallbackForEveryKey()
{
    QSettings settings = systemSettings();
    settings.setValue("colorSchemePref", QStringLiteral("dark"));
    settings.setValue("scopeShape", QStringLiteral("circle"));
    settings.setValue("scopePhysicalSize", QStringLiteral("large"));
    settings.setValue("scopeDefaultRadius", 11);
    settings.setValue("KeyboardShortcuts_pick", QStringLiteral("false"));
    settings.sync();
    Preferences preferences;
    QCOMPARE(preferences.colorScheme(), ColorSchemeChoice::Dark);
    QCOMPARE(preferences.loupeShape(), LoupeShape::Circle);
    QCOMPARE(preferences.loupeSize(), LoupeSize::Large);
    QCOMPARE(preferences.loupeRadius(), 11);
    QCOMPARE(preferences.shortcutText(QStringLiteral("pick")), QStringLiteral("false"));

    preferences.setLoupeShape(LoupeShape::Square);
    QCOMPARE(preferences.loupeShape(), LoupeShape::Square);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\nscopeShape=square\n"));
}

void PreferencesTest::shortcutTextsAreStoredByName()
{
    store("KeyboardShortcuts_list=a, b");
    Preferences preferences;
    // A list is stored, but it is not a text.
    QCOMPARE(preferences.shortcutText(QStringLiteral("list")), QString());
    const QString text = QStringLiteral(R"({"carbonKeyCode":96,"carbonModifiers":0})");
    preferences.setShortcutText(QStringLiteral("pick"), text);
    preferences.setShortcutText(QStringLiteral("open"), QStringLiteral("false"));
    QCOMPARE(preferences.shortcutText(QStringLiteral("pick")), text);
    QCOMPARE(Preferences().shortcutText(QStringLiteral("pick")), text);
    QVERIFY(contentOf(m_path).contains("\nKeyboardShortcuts_open=false\n"));
    preferences.setShortcutText(QStringLiteral("open"), std::nullopt);
    QCOMPARE(preferences.shortcutText(QStringLiteral("open")), std::nullopt);
    QVERIFY(!contentOf(m_path).contains("open"));
}

void PreferencesTest::anEditFromOutsideIsNoticed_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how : {"in place", "replaced by a rename", "created", "removed"}) {
        QTest::newRow(how) << QString::fromLatin1(how);
    }
}

void PreferencesTest::anEditFromOutsideIsNoticed()
{
    QFETCH(const QString, how);
    const QByteArray dark = "[General]\ncolorSchemePref=dark\n";
    const bool begins = how != QStringLiteral("created");
    if (begins) {
        store("colorSchemePref=light\nscopeDefaultRadius=4");
    }
    const Preferences preferences;
    QSignalSpy scheme(&preferences, &Preferences::colorSchemeChanged);
    if (how == QStringLiteral("removed")) {
        QVERIFY(QFile::remove(m_path));
    } else if (how == QStringLiteral("replaced by a rename")) {
        QFile other(m_path + QStringLiteral(".new"));
        QVERIFY(other.open(QIODevice::WriteOnly) && other.write(dark) > 0);
        other.close();
        QCOMPARE(std::rename(QFile::encodeName(other.fileName()).constData(),
                             QFile::encodeName(m_path).constData()),
                 0);
    } else {
        QFile file(m_path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(dark) > 0);
    }
    QTRY_COMPARE(preferences.colorScheme(),
                 how == QStringLiteral("removed") ? ColorSchemeChoice::Auto : ColorSchemeChoice::Dark);
    QCOMPARE(preferences.loupeRadius(), 7);
    QVERIFY(!scheme.isEmpty());
}

void PreferencesTest::aFolderThatIsCreatedLaterIsNoticed()
{
    const QTemporaryDir home;
    const Preferences preferences(home.filePath(QStringLiteral("a/b/some.conf")));
    QVERIFY(QDir(home.path()).mkpath(QStringLiteral("a")));
    QCoreApplication::processEvents();
    QVERIFY(QDir(home.path()).mkpath(QStringLiteral("a/b")));
    QFile file(home.filePath(QStringLiteral("a/b/some.conf")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("[General]\nscopeDefaultRadius=4\n") > 0);
    file.close();
    QTRY_COMPARE(preferences.loupeRadius(), 4);
}

void PreferencesTest::eachOfSeveralEditsIsNoticed()
{
    const Preferences preferences;
    for (const int radius : {4, 11, 100, 9}) {
        Preferences other(m_path);
        other.setLoupeRadius(radius);
        QTRY_COMPARE(preferences.loupeRadius(), radius);
        store("scopeDefaultRadius=" + QByteArray::number(radius * 10));
        QTRY_COMPARE(preferences.loupeRadius(), radius * 10);
    }
}

void PreferencesTest::aGetterReadsNoFile()
{
    store("scopeDefaultRadius=4\nscopeShape=circle");
    const Preferences preferences;
    QVERIFY(QFile::remove(m_path));
    // The watcher has not run yet.
    QCOMPARE(preferences.loupeRadius(), 4);
    QCOMPARE(preferences.loupeShape(), LoupeShape::Circle);
}

void PreferencesTest::onlyAnOldEmptyLockIsRemoved_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("ageInSeconds");
    QTest::addColumn<bool>("stays");
    QTest::newRow("empty and old") << QByteArray() << 60 << false;
    QTest::newRow("empty and new") << QByteArray() << 0 << true;
    QTest::newRow("empty and from the future") << QByteArray() << -86400 << false;
    QTest::newRow("held by a running program") << QByteArray("4711\ntintwick\nhost\n") << 60 << true;
}

void PreferencesTest::onlyAnOldEmptyLockIsRemoved()
{
    QFETCH(const QByteArray, content);
    QFETCH(const int, ageInSeconds);
    QFETCH(const bool, stays);
    QDir(m_configHome.path()).mkpath(QStringLiteral("Tintwick"));
    QFile lock(m_path + QStringLiteral(".lock"));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write(content);
    lock.flush();
    QVERIFY(lock.setFileTime(QDateTime::currentDateTime().addSecs(-ageInSeconds),
                             QFileDevice::FileModificationTime));
    lock.close();

    const Preferences preferences;
    QCOMPARE(lock.exists(), stays);
    lock.remove();
}

void PreferencesTest::aLockThatStaysIsReported_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"held", "folder", "pipe", "unknown owner, from the future"}) {
        QTest::newRow(kind) << QString::fromLatin1(kind);
    }
}

void PreferencesTest::aLockThatStaysIsReported()
{
    QFETCH(const QString, kind);
    const QTemporaryDir home;
    const QString path = home.filePath(QStringLiteral("some.conf"));
    const QString lock = path + QStringLiteral(".lock");
    Preferences preferences(path);
    QLockFile held(lock);
    if (kind == QStringLiteral("held")) {
        QVERIFY(held.lock());
    } else if (kind == QStringLiteral("folder")) {
        QVERIFY(QDir().mkdir(lock));
    } else if (kind == QStringLiteral("pipe")) {
        QVERIFY(::mkfifo(QFile::encodeName(lock).constData(), 0600) == 0);
    } else {
        QFile file(lock);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("1\nother\nelsewhere\nx\ny\n") > 0 &&
                file.flush());
        QVERIFY(
            file.setFileTime(QDateTime::currentDateTime().addSecs(20), QFileDevice::FileModificationTime));
    }
    const QSignalSpy problem(&preferences, &Preferences::problemChanged);
    preferences.setLoupeRadius(4);
    QCOMPARE(preferences.problem(),
             QStringLiteral("Preferences are not saved: another program holds some.conf.lock"));
    QCOMPARE(problem.count(), 1);
    QCOMPARE(contentOf(path), QByteArray());

    held.unlock();
    QVERIFY(!QFile::exists(lock) || QFile::remove(lock) || QDir().rmdir(lock));
    preferences.setLoupeRadius(11);
    QCOMPARE(preferences.problem(), QString());
    QCOMPARE(contentOf(path), QByteArray("[General]\nscopeDefaultRadius=11\n"));
}

void PreferencesTest::folderAndFileArePrivate()
{
    const QTemporaryDir home;
    const mode_t mask = ::umask(0);
    Preferences preferences(home.filePath(QStringLiteral("new/folder/some.conf")));
    preferences.setLoupeRadius(4);
    ::umask(mask);
    const auto modeOf = [&](const char* name) {
        struct stat status = {};
        ::stat(QFile::encodeName(home.filePath(QLatin1StringView(name))).constData(), &status);
        return status.st_mode & 07777U;
    };
    QCOMPARE(modeOf("new"), 0700U);
    QCOMPARE(modeOf("new/folder"), 0700U);
    QCOMPARE(modeOf("new/folder/some.conf"), 0600U);
    QCOMPARE(contentOf(home.filePath(QStringLiteral("new/folder/some.conf"))),
             QByteArray("[General]\nscopeDefaultRadius=4\n"));
}

void PreferencesTest::anythingButAFileIsNotOpened_data()
{
    QTest::addColumn<bool>("isFolder");
    QTest::addColumn<bool>("isThereAtTheStart");
    for (const bool isFolder : {true, false}) {
        for (const bool isThereAtTheStart : {true, false}) {
            QTest::addRow("%s, %s", isFolder ? "folder" : "pipe",
                          isThereAtTheStart ? "at the start" : "later")
                << isFolder << isThereAtTheStart;
        }
    }
}

void PreferencesTest::anythingButAFileIsNotOpened()
{
    QFETCH(const bool, isFolder);
    QFETCH(const bool, isThereAtTheStart);
    const QTemporaryDir home;
    const QString path = home.filePath(QStringLiteral("some.conf"));
    const auto create = [&] {
        return isFolder ? QDir().mkdir(path) : ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
    };
    QVERIFY(!isThereAtTheStart || create());
    Preferences preferences(path);
    QVERIFY(isThereAtTheStart || create());
    QCOMPARE(preferences.loupeRadius(), 7);
    preferences.setLoupeRadius(4);
    QCOMPARE(preferences.problem(), QStringLiteral("Preferences are not saved: some.conf is not a file"));

    QVERIFY(isFolder ? QDir().rmdir(path) : QFile::remove(path));
    preferences.setLoupeRadius(11);
    QCOMPARE(preferences.problem(), QString());
    QCOMPARE(preferences.loupeRadius(), 11);
    QCOMPARE(contentOf(path), QByteArray("[General]\nscopeDefaultRadius=11\n"));
}

void PreferencesTest::aFileThatCannotBeWrittenIsTold()
{
    const QTemporaryDir home;
    // A file in the place of the folder; permissions do not restrict root.
    const QString folder = home.filePath(QStringLiteral("folder"));
    QVERIFY(QFile(folder).open(QIODevice::WriteOnly));
    Preferences preferences(folder + QStringLiteral("/some.conf"));
    preferences.setLoupeRadius(4);
    QCOMPARE(preferences.problem(), QStringLiteral("Preferences are not saved: some.conf cannot be written"));
    QVERIFY(QFile::remove(folder));
    preferences.setLoupeRadius(11);
    QCOMPARE(preferences.problem(), QString());
    QCOMPARE(Preferences(folder + QStringLiteral("/some.conf")).loupeRadius(), 11);
}

} // namespace tintwick

QTEST_GUILESS_MAIN(tintwick::PreferencesTest)
#include "PreferencesTest.moc"

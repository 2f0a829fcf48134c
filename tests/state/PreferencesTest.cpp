#include "Preferences.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

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
    void nothingStoredReadsAsTheDefaults();
    void readingTheStore_data();
    void readingTheStore();
    void aValueOfAnotherTypeReadsAsTheDefault_data();
    void aValueOfAnotherTypeReadsAsTheDefault();
    void writingReachesTheFileAtOnce();
    void whatIsWrittenIsReadBack();
    void appearancesCycle();
    void anUnknownAppearanceCyclesToLight();
    void anOldEmptyLockIsRemovedAndNoOther_data();
    void anOldEmptyLockIsRemovedAndNoOther();

private:
    void store(const QByteArray& lines);

    // QSettings looks for its folder once in a process, so that all tests share one.
    QTemporaryDir m_configHome;
    QString m_path;
    QDateTime m_writtenAt = QDateTime::currentDateTimeUtc();
};

void PreferencesTest::initTestCase()
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_configHome.path()));
    m_path = m_configHome.filePath(QStringLiteral("Tintwick/Tintwick.conf"));
}

void PreferencesTest::init()
{
    QFile::remove(m_path);
}

void PreferencesTest::store(const QByteArray& lines)
{
    QDir(m_configHome.path()).mkpath(QStringLiteral("Tintwick"));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[General]\n" + lines + '\n');
    // QSettings tells another content by size and time, and two rows can come within one tick of the file
    // system.
    m_writtenAt = m_writtenAt.addSecs(1);
    QVERIFY(file.flush() && file.setFileTime(m_writtenAt, QFileDevice::FileModificationTime));
}

void PreferencesTest::nothingStoredReadsAsTheDefaults()
{
    QCOMPARE(preferences::colorScheme(), ColorSchemePref::Auto);
    QCOMPARE(preferences::scopeIsCircle(), false);
    QCOMPARE(preferences::scopeSide(), 130.0);
    QCOMPARE(preferences::scopeDefaultRadius(), 7);
    QVERIFY(!QFile::exists(m_path));
}

void PreferencesTest::readingTheStore_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<ColorSchemePref>("scheme");
    QTest::addColumn<bool>("circle");
    QTest::addColumn<double>("side");
    QTest::addColumn<int>("radius");
    const auto scheme = [](const char* line, ColorSchemePref expected) {
        QTest::newRow(line) << QByteArray(line) << expected << false << 130.0 << 7;
    };
    const auto shape = [](const char* line, bool circle) {
        QTest::newRow(line) << QByteArray(line) << ColorSchemePref::Auto << circle << 130.0 << 7;
    };
    const auto size = [](const char* line, double side) {
        QTest::newRow(line) << QByteArray(line) << ColorSchemePref::Auto << false << side << 7;
    };
    const auto radius = [](const char* line, int expected) {
        QTest::newRow(line) << QByteArray(line) << ColorSchemePref::Auto << false << 130.0 << expected;
    };
    scheme("colorSchemePref=auto", ColorSchemePref::Auto);
    scheme("colorSchemePref=light", ColorSchemePref::Light);
    scheme("colorSchemePref=dark", ColorSchemePref::Dark);
    scheme("colorSchemePref=Dark", ColorSchemePref::Auto);
    scheme("colorSchemePref=sepia", ColorSchemePref::Auto);
    scheme("colorSchemePref=", ColorSchemePref::Auto);
    scheme("colorSchemePref=dark, light", ColorSchemePref::Auto);
    scheme("colorSchemePref=@ByteArray(dark)", ColorSchemePref::Auto);
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

void PreferencesTest::readingTheStore()
{
    QFETCH(QByteArray, line);
    QFETCH(ColorSchemePref, scheme);
    QFETCH(bool, circle);
    QFETCH(double, side);
    QFETCH(int, radius);
    store(line);
    QCOMPARE(preferences::colorScheme(), scheme);
    QCOMPARE(preferences::scopeIsCircle(), circle);
    QCOMPARE(preferences::scopeSide(), side);
    QCOMPARE(preferences::scopeDefaultRadius(), radius);
}

void PreferencesTest::aValueOfAnotherTypeReadsAsTheDefault_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("a fraction") << QVariant(11.5);
    QTest::newRow("bytes") << QVariant(QByteArray("dark"));
    QTest::newRow("a list") << QVariant(QStringList{QStringLiteral("dark"), QStringLiteral("11")});
    QTest::newRow("nothing") << QVariant();
}

void PreferencesTest::aValueOfAnotherTypeReadsAsTheDefault()
{
    QFETCH(QVariant, value);
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Tintwick"),
                       QStringLiteral("Tintwick"));
    for (const char* key : {"colorSchemePref", "scopeShape", "scopePhysicalSize", "scopeDefaultRadius"}) {
        settings.setValue(QLatin1StringView(key), value);
    }
    settings.sync();
    QCOMPARE(preferences::colorScheme(), ColorSchemePref::Auto);
    QCOMPARE(preferences::scopeIsCircle(), false);
    QCOMPARE(preferences::scopeSide(), 130.0);
    QCOMPARE(preferences::scopeDefaultRadius(), 7);
}

void PreferencesTest::writingReachesTheFileAtOnce()
{
    preferences::setColorScheme(ColorSchemePref::Dark);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=dark\n"));
    preferences::setScopeDefaultRadius(11);
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=dark\nscopeDefaultRadius=11\n"));
}

void PreferencesTest::whatIsWrittenIsReadBack()
{
    preferences::setColorScheme(ColorSchemePref::Light);
    preferences::setScopeShape(QStringLiteral("circle"));
    preferences::setScopePhysicalSize(QStringLiteral("large"));
    preferences::setScopeDefaultRadius(4);
    QCOMPARE(preferences::colorScheme(), ColorSchemePref::Light);
    QCOMPARE(preferences::scopeIsCircle(), true);
    QCOMPARE(preferences::scopeSide(), 160.0);
    QCOMPARE(preferences::scopeDefaultRadius(), 4);

    preferences::setScopeShape(QStringLiteral("square"));
    preferences::setScopePhysicalSize(QStringLiteral("small"));
    preferences::setScopeDefaultRadius(-1);
    QCOMPARE(preferences::scopeIsCircle(), false);
    QCOMPARE(preferences::scopeSide(), 100.0);
    QCOMPARE(preferences::scopeDefaultRadius(), 7);
}

void PreferencesTest::appearancesCycle()
{
    QCOMPARE(preferences::nextColorScheme(ColorSchemePref::Auto), ColorSchemePref::Light);
    QCOMPARE(preferences::nextColorScheme(ColorSchemePref::Light), ColorSchemePref::Dark);
    QCOMPARE(preferences::nextColorScheme(ColorSchemePref::Dark), ColorSchemePref::Auto);
}

void PreferencesTest::anUnknownAppearanceCyclesToLight()
{
    store("colorSchemePref=sepia");
    preferences::setColorScheme(preferences::nextColorScheme(preferences::colorScheme()));
    QCOMPARE(contentOf(m_path), QByteArray("[General]\ncolorSchemePref=light\n"));
}

void PreferencesTest::anOldEmptyLockIsRemovedAndNoOther_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("ageInSeconds");
    QTest::addColumn<bool>("stays");
    QTest::newRow("empty and old") << QByteArray() << 60 << false;
    QTest::newRow("empty and just made") << QByteArray() << 0 << true;
    QTest::newRow("somebody's") << QByteArray("4711\ntintwick\nhost\n") << 60 << true;
}

void PreferencesTest::anOldEmptyLockIsRemovedAndNoOther()
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

    preferences::removeAbandonedLock();
    QCOMPARE(lock.exists(), stays);
    lock.remove();
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::PreferencesTest)
#include "PreferencesTest.moc"

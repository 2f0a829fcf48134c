#include "DesktopSettings.h"

#include <QSignalSpy>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

class DesktopSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent"); }
    void withoutABusThereAreNoPreferences();
    void settingsAreParsed_data();
    void settingsAreParsed();
    void anyReducedMotionSettingCounts();
    void highContrastIsParsed_data();
    void highContrastIsParsed();
};

void DesktopSettingsTest::withoutABusThereAreNoPreferences()
{
    const DesktopSettings appearance;
    QCOMPARE(appearance.prefersDark(), std::nullopt);
    QVERIFY(!appearance.prefersReducedMotion());
    QVERIFY(!appearance.prefersHighContrast());
}

void DesktopSettingsTest::settingsAreParsed_data()
{
    QTest::addColumn<QString>("space");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("dark");
    QTest::addColumn<bool>("reducedMotion");
    const QString appearance = u"org.freedesktop.appearance"_s;
    const QString gnome = u"org.gnome.desktop.interface"_s;
    const QString kde = u"org.kde.kdeglobals.KDE"_s;
    QTest::newRow("no preference") << appearance << u"color-scheme"_s << QVariant(0U) << u"none"_s << false;
    QTest::newRow("dark") << appearance << u"color-scheme"_s << QVariant(1U) << u"yes"_s << false;
    QTest::newRow("light") << appearance << u"color-scheme"_s << QVariant(2U) << u"no"_s << false;
    QTest::newRow("an unknown scheme")
        << appearance << u"color-scheme"_s << QVariant(9U) << u"none"_s << false;
    QTest::newRow("the same key in another namespace")
        << gnome << u"color-scheme"_s << QVariant(1U) << u"none"_s << false;
    QTest::newRow("reduced motion") << appearance << u"reduced-motion"_s << QVariant(1U) << u"none"_s << true;
    QTest::newRow("normal motion") << appearance << u"reduced-motion"_s << QVariant(0U) << u"none"_s << false;
    QTest::newRow("no animations") << gnome << u"enable-animations"_s << QVariant(false) << u"none"_s << true;
    QTest::newRow("animations") << gnome << u"enable-animations"_s << QVariant(true) << u"none"_s << false;
    QTest::newRow("animations of zero duration")
        << kde << u"AnimationDurationFactor"_s << QVariant(u"0"_s) << u"none"_s << true;
    QTest::newRow("animations of half duration")
        << kde << u"AnimationDurationFactor"_s << QVariant(u"0.5"_s) << u"none"_s << false;
    QTest::newRow("not a number") << kde << u"AnimationDurationFactor"_s << QVariant(u""_s) << u"none"_s
                                  << false;
}

void DesktopSettingsTest::settingsAreParsed()
{
    QFETCH(const QString, space);
    QFETCH(const QString, key);
    QFETCH(const QVariant, value);
    QFETCH(const QString, dark);
    DesktopSettings appearance;
    QSignalSpy changed(&appearance, &DesktopSettings::changed);
    appearance.take(space, key, value);
    const QString scheme = !appearance.prefersDark()   ? u"none"_s
                           : *appearance.prefersDark() ? u"yes"_s
                                                       : u"no"_s;
    QCOMPARE(scheme, dark);
    QTEST(appearance.prefersReducedMotion(), "reducedMotion");
    const qsizetype expected = dark != "none"_L1 || appearance.prefersReducedMotion() ? 1 : 0;
    QCOMPARE(changed.size(), expected);
    appearance.take(space, key, value);
    QCOMPARE(changed.size(), expected);
}

void DesktopSettingsTest::anyReducedMotionSettingCounts()
{
    DesktopSettings appearance;
    appearance.take(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, false);
    appearance.take(u"org.freedesktop.appearance"_s, u"reduced-motion"_s, 1U);
    appearance.take(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, true);
    QVERIFY(appearance.prefersReducedMotion());
    appearance.take(u"org.freedesktop.appearance"_s, u"reduced-motion"_s, 0U);
    QVERIFY(!appearance.prefersReducedMotion());
}

void DesktopSettingsTest::highContrastIsParsed_data()
{
    QTest::addColumn<QString>("space");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("highContrast");
    const QString appearance = u"org.freedesktop.appearance"_s;
    const QString gnome = u"org.gnome.desktop.a11y.interface"_s;
    QTest::newRow("no preference") << appearance << u"contrast"_s << QVariant(0U) << false;
    QTest::newRow("higher contrast") << appearance << u"contrast"_s << QVariant(1U) << true;
    QTest::newRow("an unknown contrast") << appearance << u"contrast"_s << QVariant(9U) << false;
    QTest::newRow("GNOME, on") << gnome << u"high-contrast"_s << QVariant(true) << true;
    QTest::newRow("GNOME, off") << gnome << u"high-contrast"_s << QVariant(false) << false;
    QTest::newRow("the key in another namespace") << gnome << u"contrast"_s << QVariant(1U) << false;
}

void DesktopSettingsTest::highContrastIsParsed()
{
    QFETCH(const QString, space);
    QFETCH(const QString, key);
    QFETCH(const QVariant, value);
    QFETCH(const bool, highContrast);
    DesktopSettings appearance;
    QSignalSpy changed(&appearance, &DesktopSettings::changed);
    appearance.take(space, key, value);
    QCOMPARE(appearance.prefersHighContrast(), highContrast);
    QCOMPARE(changed.size(), highContrast ? 1 : 0);
}

QTEST_GUILESS_MAIN(DesktopSettingsTest)
#include "DesktopSettingsTest.moc"

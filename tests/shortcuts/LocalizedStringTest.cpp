#include "LocalizedString.h"

#include <QTest>
#include <QTranslator>

#include <algorithm>

namespace tintwick::test {

using namespace KeyboardShortcuts;

namespace {

class Backwards final : public QTranslator
{
public:
    [[nodiscard]] QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                                    int /*n*/) const override
    {
        QString word = QString::fromUtf8(text);
        std::reverse(word.begin(), word.end());
        return qstrcmp(context, "KeyboardShortcuts") == 0 ? word : QString();
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

} // namespace

class LocalizedStringTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyKeyHasAnEnglishText_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* key, const char* text) {
            QTest::newRow(key) << QByteArray(key) << QString::fromUtf8(text);
        };
        row("record_shortcut", "Record Shortcut");
        row("press_shortcut", "Press Shortcut");
        row("clear_shortcut", "Clear Shortcut");
        row("ok", "OK");
        row("force_use_shortcut", "Use Anyway");
        row("keyboard_shortcut_used_by_menu_item", "This shortcut belongs to the menu item “%1”.");
        row("keyboard_shortcut_used_by_system", "The desktop or another program uses this shortcut.");
        row("keyboard_shortcuts_can_be_changed",
            "Most shortcuts of the desktop can be changed in its keyboard settings.");
        row("keyboard_shortcut_disallowed", "This shortcut needs ⌘ or ⌃ beside ⌥.");
        row("space_key", "Space");
        row("no_such_key", "no_such_key");
    }
    void everyKeyHasAnEnglishText()
    {
        QFETCH(const QByteArray, key);
        QFETCH(const QString, text);
        QCOMPARE(localizedString(QLatin1StringView(key)), text);
    }

    void aTranslationIsUsedWhereThereIsOne()
    {
        Backwards translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        QCOMPARE(localizedString(QLatin1StringView("space_key")), QStringLiteral("ecapS"));
    }
};

} // namespace tintwick::test

QTEST_GUILESS_MAIN(tintwick::test::LocalizedStringTest)
#include "LocalizedStringTest.moc"

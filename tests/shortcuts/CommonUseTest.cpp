#include "CommonUse.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QTest>

namespace tintwick::test {

class CommonUseTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commonKeysHaveAUse_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("use");
        constexpr int super = 0x100, shift = 0x200, alt = 0x800, control = 0x1000;
        QTest::newRow("Ctrl+C") << 8 << control << "copy";
        QTest::newRow("Ctrl+V") << 9 << control << "paste";
        QTest::newRow("Ctrl+X") << 7 << control << "cut";
        QTest::newRow("Ctrl+Z") << 6 << control << "undo";
        QTest::newRow("Ctrl+Shift+Z") << 6 << (control | shift) << "redo";
        QTest::newRow("Alt+Tab") << 48 << alt << "switch windows";
        QTest::newRow("Alt+F4") << 118 << alt << "close a window";
        const QString none;
        QTest::newRow("Alt+Shift+C") << 8 << (alt | shift) << none;
        QTest::newRow("Ctrl+Alt+C") << 8 << (control | alt) << none;
        QTest::newRow("Super+C") << 8 << super << none;
        QTest::newRow("F4") << 118 << 0 << none;
        QTest::newRow("Ctrl and a key that types nothing") << 10 << control << none;
    }
    void commonKeysHaveAUse()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const QString, use);
        ScriptedKeyboardLayout layout;
        layout.characters = {{8, QStringLiteral("c")},
                             {9, QStringLiteral("v")},
                             {7, QStringLiteral("x")},
                             {6, QStringLiteral("z")}};
        QCOMPARE(commonUse({keyCode, modifiers}, layout).value_or(QString()), use);
    }

    void theLetterCountsAndNotThePosition()
    {
        ScriptedKeyboardLayout french;
        constexpr int whereUsHasW = 13, whereUsHasZ = 6, control = 0x1000;
        french.characters = {{whereUsHasW, QStringLiteral("z")}, {whereUsHasZ, QStringLiteral("w")}};
        QCOMPARE(commonUse({whereUsHasW, control}, french), std::optional(QStringLiteral("undo")));
    }
};

} // namespace tintwick::test

QTEST_APPLESS_MAIN(tintwick::test::CommonUseTest)
#include "CommonUseTest.moc"

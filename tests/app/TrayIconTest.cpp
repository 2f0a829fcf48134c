#include "TrayIcon.h"

#include <QApplication>
#include <QTest>

using namespace tintwick;

class TrayIconTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theIconHasTheColorOfTheTray();
    void theMenuShowsTheKeysThatPick();
};

namespace {

/// The colour of the most opaque pixel of the icon.
QColor ink(const TrayIcon& item)
{
    const QImage picture = item.icon().pixmap(22, 22).toImage().convertToFormat(QImage::Format_ARGB32);
    QColor result(Qt::transparent);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y).alpha() > result.alpha()) {
                result = picture.pixelColor(x, y);
            }
        }
    }
    return result;
}

} // namespace

void TrayIconTest::theIconHasTheColorOfTheTray()
{
    TrayIcon item;
    QCOMPARE(ink(item), QColor(0x76, 0x76, 0x76));
    item.setSymbolColor(QColor(0xEE, 0xEE, 0xEC));
    QCOMPARE(ink(item), QColor(0xEE, 0xEE, 0xEC));
    item.setSymbolColor(std::nullopt);
    QCOMPARE(ink(item), QColor(0x76, 0x76, 0x76));
}

void TrayIconTest::theMenuShowsTheKeysThatPick()
{
    TrayIcon item;
    const QAction& pick = *item.menu().actions().constFirst();
    QCOMPARE(pick.text(), QStringLiteral("Pick Color"));
    item.setPickKeys(QStringLiteral("⌥⇧C"), QStringLiteral("Alt+Shift+C"));
    QCOMPARE(pick.text(), QStringLiteral("Pick Color (⌥⇧C)"));
    QCOMPARE(item.menu().toolTip(), QStringLiteral("Alt+Shift+C"));
    item.setPickKeys(QStringLiteral("⌥&"), QStringLiteral("Alt+&"));
    QCOMPARE(pick.text(), QStringLiteral("Pick Color (⌥&&)"));
    item.setPickKeys({}, {});
    QCOMPARE(pick.text(), QStringLiteral("Pick Color"));
}

QTEST_MAIN(TrayIconTest)
#include "TrayIconTest.moc"

#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/WaitUntil.h"

#include <QTest>

#include <vector>

using namespace tintwick;

using Monitors = std::vector<PrivateDesktop::Monitor>;

Q_DECLARE_METATYPE(Monitors)

/// The loupe stays inside the monitor under the pointer in every layout of monitors.
class MonitorsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLoupeStaysInsideTheMonitorUnderThePointer_data();
    void theLoupeStaysInsideTheMonitorUnderThePointer();
    void afterAMonitorIsRemovedTheOthersCanBePicked_data();
    void afterAMonitorIsRemovedTheOthersCanBePicked();
};

namespace {

constexpr QSize desktopSize(1600, 900);

} // namespace

void MonitorsTest::theLoupeStaysInsideTheMonitorUnderThePointer_data()
{
    QTest::addColumn<Monitors>("monitors");
    QTest::addColumn<double>("scale");

    const Monitors single{{"only", {0, 0, 1600, 900}, true}};
    const Monitors sideBySide{{"left", {0, 0, 800, 600}, true}, {"right", {800, 0, 800, 900}}};
    const Monitors primaryRightAndBelow{{"above left", {0, 0, 700, 500}},
                                        {"primary", {700, 300, 900, 600}, true}};
    const Monitors gap{{"low", {0, 400, 640, 500}, true}, {"high", {900, 0, 700, 450}}};
    QTest::newRow("one monitor") << single << 1.0;
    QTest::newRow("side by side, different heights") << sideBySide << 1.0;
    QTest::newRow("one left of and above the primary one") << primaryRightAndBelow << 1.0;
    QTest::newRow("with a gap between them") << gap << 1.0;
    QTest::newRow("one left of and above the primary one, scale 2") << primaryRightAndBelow << 2.0;
    QTest::newRow("side by side, scale 1.5") << sideBySide << 1.5;
}

void MonitorsTest::theLoupeStaysInsideTheMonitorUnderThePointer()
{
    QFETCH(const Monitors, monitors);
    QFETCH(const double, scale);
    PrivateDesktop desktop({.size = desktopSize});
    const auto picture = desktop.showPicture();
    desktop.setMonitors(monitors);
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale));
    TintwickProcess program(desktop, environment);
    QVERIFY(program.startPicking());
    for (const auto& monitor : monitors) {
        const QRect& frame = monitor.geometry;
        const QPoint positions[] = {frame.topLeft(),
                                    frame.topRight(),
                                    frame.bottomLeft(),
                                    frame.bottomRight(),
                                    frame.center(),
                                    {frame.left(), frame.center().y()},
                                    {frame.right(), frame.center().y()},
                                    {frame.left() + frame.width() / 8, frame.bottom()}};
        for (const QPoint position : positions) {
            desktop.movePointer(position);
            const QRect place = loupePlace(position, frame, scale);
            QVERIFY2(program.waitForLoupeAt(place),
                     QStringLiteral("pointer at %1, %2: loupe at %3, %4 instead of %5, %6")
                         .arg(position.x())
                         .arg(position.y())
                         .arg(program.loupe().value_or(QRect()).x())
                         .arg(program.loupe().value_or(QRect()).y())
                         .arg(place.x())
                         .arg(place.y())
                         .toUtf8()
                         .constData());
            QVERIFY(frame.contains(program.loupe().value()));
            // The tray covers the picture here.
            if (position.y() > 40) {
                QVERIFY(program.waitForCenterCell(patternPixel(position.x(), position.y())));
            }
        }
    }
}

void MonitorsTest::afterAMonitorIsRemovedTheOthersCanBePicked_data()
{
    QTest::addColumn<Monitors>("monitors");
    QTest::newRow("right of the primary one")
        << Monitors{{"stays", {0, 0, 800, 600}, true}, {"goes", {800, 0, 800, 900}}};
    QTest::newRow("the primary one") << Monitors{{"stays", {0, 0, 800, 600}},
                                                 {"goes", {800, 300, 800, 600}, true}};
}

void MonitorsTest::afterAMonitorIsRemovedTheOthersCanBePicked()
{
    QFETCH(const Monitors, monitors);
    PrivateDesktop desktop({.size = desktopSize});
    const auto picture = desktop.showPicture();
    desktop.setMonitors(monitors);
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    const QPoint onVanishing(1200, 650);
    desktop.movePointer(onVanishing);
    QVERIFY(program.waitForLoupeAt(loupePlace(onVanishing, monitors.back().geometry)));

    desktop.removeMonitor("goes");
    const QRect& staying = monitors.front().geometry;
    QVERIFY(waitUntil([&] {
        const auto loupe = program.loupe();
        return !loupe || staying.contains(*loupe);
    }));
    QVERIFY(program.process().isRunning());
    if (!program.loupe()) {
        QVERIFY(waitUntil([&] { return desktop.pointerIsVisible(); }));
        QVERIFY(program.startPicking());
    }
    const QPoint onStaying(300, 350);
    desktop.movePointer(onStaying);
    QVERIFY(program.waitForLoupeAt(loupePlace(onStaying, staying)));
    QVERIFY(program.waitForCenterCell(patternPixel(300, 350)));
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForClipboard(hexText(patternPixel(300, 350))));
    QVERIFY(desktop.pointerIsVisible());
}

QTEST_GUILESS_MAIN(MonitorsTest)
#include "MonitorsTest.moc"

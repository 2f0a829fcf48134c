#include "support/WaitUntil.h"
#include "support/wayland/GnomeDesktop.h"
#include "support/wayland/KWinDesktop.h"
#include "wayland/WaylandTintwick.h"

#include <linux/input-event-codes.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QRect>
#include <QTest>

#include <functional>
#include <memory>

using namespace tintwick;
using namespace Qt::StringLiterals;

using StartDesktop = std::unique_ptr<WaylandDesktop> (*)();

Q_DECLARE_METATYPE(StartDesktop)

/// The panel on KWin and GNOME Shell, which place it where they like.
class DesktopPanelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSwatchCopiesAndTheTextStays_data() { addDesktops(); }
    void aSwatchCopiesAndTheTextStays();
    void aKeyThatClosesAMenuLeavesThePanel_data() { addDesktops(); }
    void aKeyThatClosesAMenuLeavesThePanel();

private:
    static void addDesktops();
};

namespace {

constexpr QRgb red = qRgb(255, 0, 0);

/// A desktop with the panel, which shows one red colour.
class Scene final
{
public:
    explicit Scene(StartDesktop startDesktop)
        : desktop(startDesktop())
    {
        const QString folder = desktop->session().dataHome() + u"/Tintwick"_s;
        QVERIFY(QDir().mkpath(folder));
        QFile file(folder + u"/data.json"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(R"({"history": [{"id": "3F2504E0-4F89-41D3-9A0C-0305E82C3301", "red": 1, "green": 0,)"
                   R"( "blue": 0, "alpha": 1, "capturedAt": "2026-01-02T03:04:05Z"}], "collections": [],)"
                   R"( "defaultFormat": "HEX"})");
        file.close();
        program = std::make_unique<WaylandTintwick>(*desktop, QStringList{u"panel"_s});
    }

    std::unique_ptr<WaylandDesktop> desktop;
    std::unique_ptr<WaylandTintwick> program;

    /// Around the red pixels on the screen; empty when there are none.
    [[nodiscard]] QRect redPlace()
    {
        const QImage screen = desktop->screenshot(0);
        QRect place;
        for (int y = 0; y < screen.height(); ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                if (screen.pixel(x, y) == red) {
                    place |= QRect(x, y, 1, 1);
                }
            }
        }
        return place;
    }
    /// Waits for the panel, and moves the pointer onto the swatch.
    [[nodiscard]] bool pointAtSwatch()
    {
        if (!waitUntil([this] { return redPlace().width() > 40; }) || !desktop->waitForRest(0)) {
            return false;
        }
        // GNOME Shell has no keyboard before the first key, and no pointer before the first move.
        desktop->typeKey(KEY_LEFTSHIFT);
        const QPoint swatch = redPlace().center();
        int step = 0;
        // The swatch under the pointer is darker.
        return waitUntil([&] {
                   desktop->movePointer({0, swatch + QPoint(++step % 2, 0)});
                   return redPlace().isEmpty();
               }) &&
               desktop->waitForRest(0);
    }
    /// Whether the swatch is red again when the pointer has left it.
    [[nodiscard]] bool showsPanel()
    {
        desktop->movePointer({0, {5, desktop->outputSize(0).height() - 5}});
        return waitUntil([this] { return redPlace().width() > 40; });
    }
    [[nodiscard]] bool waitForPanelToHide()
    {
        desktop->movePointer({0, {5, desktop->outputSize(0).height() - 5}});
        return desktop->waitForRest(0) && waitUntil([this] { return redPlace().isEmpty(); });
    }
};

} // namespace

void DesktopPanelTest::addDesktops()
{
    QTest::addColumn<StartDesktop>("startDesktop");
    QTest::newRow("KWin") << StartDesktop([]() -> std::unique_ptr<WaylandDesktop> {
        return std::make_unique<KWinDesktop>(KWinDesktop::KWinOptions{});
    });
    QTest::newRow("GNOME Shell") << StartDesktop([]() -> std::unique_ptr<WaylandDesktop> {
        return std::make_unique<GnomeDesktop>(GnomeDesktop::GnomeOptions{});
    });
}

void DesktopPanelTest::aSwatchCopiesAndTheTextStays()
{
    QFETCH(const StartDesktop, startDesktop);
    Scene scene(startDesktop);
    QVERIFY(scene.pointAtSwatch());
    scene.desktop->click();
    scene.desktop->typeKey(KEY_ESC);
    QVERIFY(scene.waitForPanelToHide());
    QVERIFY(scene.program->waitForClipboard("#FF0000"));
}

void DesktopPanelTest::aKeyThatClosesAMenuLeavesThePanel()
{
    QFETCH(const StartDesktop, startDesktop);
    Scene scene(startDesktop);
    QVERIFY(scene.pointAtSwatch());
    const QImage withoutMenu = scene.desktop->screenshot(0);
    scene.desktop->click(BTN_RIGHT);
    QVERIFY(waitUntil([&] { return scene.desktop->screenshot(0) != withoutMenu; }));
    QVERIFY(scene.desktop->waitForRest(0));
    // As long as a hand does. KWin gives the focus back at the release.
    constexpr int hold = 400; // milliseconds
    scene.desktop->setKey(KEY_ESC, true);
    QElapsedTimer held;
    held.start();
    QVERIFY(waitUntil([&] { return held.hasExpired(hold); }));
    scene.desktop->setKey(KEY_ESC, false);
    QVERIFY(scene.showsPanel());
    scene.desktop->typeKey(KEY_ESC);
    QVERIFY(scene.waitForPanelToHide());
}

QTEST_GUILESS_MAIN(DesktopPanelTest)
#include "DesktopPanelTest.moc"

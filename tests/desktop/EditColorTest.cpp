#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <X11/keysym.h>

#include <cmath>

using namespace tintwick;

namespace {

using namespace Qt::StringLiterals;

using Button = PrivateDesktop::Button;

constexpr QRgb blue = qRgb(0x3B, 0x82, 0xF6);
constexpr QRgb focusRing = qRgb(0x4B, 0x50, 0xDC);
constexpr QRgb purple = qRgb(0xA9, 0x5F, 0xDA);

// In pixels from the top left corner of the panel.
constexpr QPoint originalHalf(100, 100);
constexpr QPoint newHalf(280, 100);
constexpr QPoint hueThumb(235, 376);
constexpr QPoint hueNumber(340, 376);
/// On the line around the number while the user types it.
constexpr QPoint numberFrame(341, 362);
constexpr QPoint saveButton(316, 551);
/// The buttons of the header, the pick button and "See all" come before the first colour.
constexpr int tabsToFirstColor = 6;

/// "#3B82F6" for each colour of the stored history.
QStringList storedCodes(const TintwickProcess& program)
{
    QStringList codes;
    for (const QJsonValue value : program.data().value("history"_L1).toArray()) {
        const QJsonObject color = value.toObject();
        const auto component = [&](QLatin1StringView name) {
            return static_cast<int>(std::lround(color.value(name).toDouble() * 255));
        };
        codes.append(
            QColor(component("red"_L1), component("green"_L1), component("blue"_L1)).name().toUpper());
    }
    return codes;
}

bool isNear(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) < 3 && std::abs(qGreen(one) - qGreen(other)) < 3 &&
           std::abs(qBlue(one) - qBlue(other)) < 3;
}

} // namespace

/// The screen that edits a colour, with a real pointer and real keys.
class EditColorTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aColorIsEditedAndSavedBesideTheOriginal();

private:
    /// Opens the only colour by keys and waits for its screen.
    static bool openColor(PrivateDesktop& desktop, TintwickProcess& program);
    static QRgb pixelAt(PrivateDesktop& desktop, TintwickProcess& program, QPoint place);
};

QRgb EditColorTest::pixelAt(PrivateDesktop& desktop, TintwickProcess& program, QPoint place)
{
    return desktop.pixel(program.panel().topLeft() + place);
}

bool EditColorTest::openColor(PrivateDesktop& desktop, TintwickProcess& program)
{
    if (!program.waitForTrayIcon()) {
        return false;
    }
    desktop.clickAt(program.trayIcon().center());
    if (!program.waitForPanel() || !program.waitForPanelToHaveFocus()) {
        return false;
    }
    for (int i = 0; i < tabsToFirstColor; ++i) {
        desktop.typeKey(XK_Tab);
    }
    desktop.typeKey(XK_e, {XK_Control_L});
    return waitUntil([&] {
        return pixelAt(desktop, program, originalHalf) == blue && pixelAt(desktop, program, newHalf) == blue;
    });
}

void EditColorTest::aColorIsEditedAndSavedBesideTheOriginal()
{
    PrivateDesktop desktop({});
    keepData(desktop,
             R"({"history": [{"id": "3F2504E0-4F89-41D3-9A0C-0305E82C3301", "red": 0.23137254901960785,
                 "green": 0.50980392156862742, "blue": 0.96470588235294119, "alpha": 1,
                 "capturedAt": "2026-01-02T03:04:05Z"}], "collections": [], "defaultFormat": "HEX"})");
    TintwickProcess program(desktop);
    QVERIFY(openColor(desktop, program));

    // The hue from blue to red, by a drag.
    const QPoint thumb = program.panel().topLeft() + hueThumb;
    desktop.movePointer(thumb);
    desktop.press(Button::Left);
    constexpr int distance = 125;
    for (int step = 1; step <= 10; ++step) {
        desktop.movePointer(thumb - QPoint(distance * step / 10, 0));
    }
    QVERIFY(waitUntil([&] {
        const QRgb pixel = pixelAt(desktop, program, newHalf);
        return qRed(pixel) > 180 && qBlue(pixel) < 120;
    }));
    desktop.release(Button::Left);
    QCOMPARE(pixelAt(desktop, program, originalHalf), blue);

    // By its number.
    desktop.clickAt(program.panel().topLeft() + hueNumber);
    desktop.click();
    // The toolkit may handle a key before a click that came less than a millisecond earlier.
    QVERIFY(waitUntil([&] { return pixelAt(desktop, program, numberFrame) == focusRing; }));
    for (const xcb_keysym_t key : {XK_3, XK_1, XK_0, XK_Return}) {
        desktop.typeKey(key);
    }
    QVERIFY(waitUntil([&] { return isNear(pixelAt(desktop, program, newHalf), purple); }));
    QCOMPARE(storedCodes(program), QStringList{u"#3B82F6"_s});

    desktop.clickAt(program.panel().topLeft() + saveButton);
    QVERIFY(waitUntil([&] { return storedCodes(program) == QStringList({u"#A95FDA"_s, u"#3B82F6"_s}); }));

    // A click on the new half copies it, one on the old half returns.
    desktop.clickAt(program.panel().topLeft() + newHalf);
    QVERIFY(program.waitForClipboard("#A95FDA"));
    desktop.clickAt(program.panel().topLeft() + originalHalf);
    QVERIFY(waitUntil([&] { return isNear(pixelAt(desktop, program, newHalf), blue); }));
    desktop.typeKey(XK_z, {XK_Control_L});
    QVERIFY(waitUntil([&] { return storedCodes(program) == QStringList{u"#3B82F6"_s}; }));
}

QTEST_GUILESS_MAIN(EditColorTest)
#include "EditColorTest.moc"

#include "desktop/TintwickProcess.h"
#include "support/KeyCombination.h"
#include "support/KeyboardInput.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QTest>

#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <cstddef>

using namespace tintwick;

namespace {

using namespace Qt::StringLiterals;

using Button = PrivateDesktop::Button;
using Compositor = PrivateDesktop::Compositor;

constexpr std::uint16_t shift = 0x01, alt = 0x08, super = 0x40;
constexpr KeyCombination altShiftC{KEY_C, alt | shift};
constexpr KeyCombination superShiftP{KEY_P, super | shift};

/// The picked colours, in this order.
constexpr std::array patches{qRgb(0xFF, 0x88, 0x00), qRgb(0x00, 0x88, 0xFF), qRgb(0x22, 0xAA, 0x44),
                             qRgb(0xCC, 0x33, 0x66), qRgb(0xFF, 0xEE, 0x00)};
constexpr QRect patchWindow(40, 100, 100, 600);
constexpr int patchHeight = 120;

// In pixels from the top left corner of the panel.
namespace place {

constexpr QPoint back(23, 25);
constexpr QPoint gear(350, 25);
constexpr QPoint done(335, 25);
/// A pixel that is blue on the dashboard and on no other screen.
constexpr QPoint pickButton(190, 72);

constexpr QPoint pickerRecorder(230, 149);

constexpr QPoint seeAll(340, 147);
constexpr QPoint firstSwatch(47, 200);
constexpr int swatchStep = 74;
constexpr QPoint createPalette(190, 347);
constexpr QPoint card(190, 355);
constexpr QPoint cardOutline(16, 355);
constexpr std::array cardPreview{QPoint(243, 352), QPoint(277, 352), QPoint(311, 352)};

constexpr QPoint firstTile(46, 143);
constexpr QPoint secondTileRing(118, 116);
constexpr QPoint save(264, 341);
constexpr QPoint create(309, 303);

constexpr QPoint exportMenu(335, 77);
constexpr QPoint firstRowSquare(33, 131);
constexpr QPoint firstRowText(160, 131);
constexpr int rowStep = 54;

} // namespace place

/// The order of the items in the export menu.
enum class Export : std::uint8_t { Css, Json, Png };

/// Whether this is the colour of a button, or of a button under the pointer.
bool isAccent(QRgb color)
{
    return qBlue(color) - qRed(color) > 60;
}

QImage patchPicture()
{
    QImage picture(patchWindow.size(), QImage::Format_RGB32);
    QPainter painter(&picture);
    for (std::size_t i = 0; i < patches.size(); ++i) {
        painter.fillRect(0, static_cast<int>(i) * patchHeight, picture.width(), patchHeight,
                         QColor(patches.at(i)));
    }
    return picture;
}

QPoint patchMiddle(std::size_t patch)
{
    return patchWindow.topLeft() +
           QPoint(patchWindow.width() / 2, static_cast<int>(patch) * patchHeight + patchHeight / 2);
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A user at the desktop. Each action returns whether its effect became visible.
class User final
{
public:
    explicit User(Compositor compositor)
        : desktop({.compositor = compositor})
    {
        otherProgram.setPicture(patchPicture());
        otherProgram.show();
    }

    PrivateDesktop desktop;
    DesktopConnection other{desktop.display()};
    KeyboardInput keyboard{desktop.display()};
    TestWindow otherProgram{other, {.geometry = patchWindow, .input = TestWindow::Input::Recorded}};

    void click(QPoint inPanel, Button button = Button::Left)
    {
        desktop.movePointer(m_panel + inPanel);
        desktop.click(button);
    }
    void drag(QPoint from, QPoint to)
    {
        desktop.movePointer(m_panel + from);
        desktop.press(Button::Left);
        constexpr int steps = 10;
        for (int step = 1; step <= steps; ++step) {
            desktop.movePointer(m_panel + from + (to - from) * step / steps);
        }
    }
    /// Drags a swatch onto the card, and drops it when the card shows that it accepts it.
    [[nodiscard]] bool dropsOntoCard(QPoint swatch)
    {
        if (!waitUntil([&] { return !isAccent(seen(place::cardOutline)); })) {
            return false;
        }
        drag(swatch, place::card);
        // Keep moving the pointer: a drag is reported to a window only by moves.
        bool isRight = false;
        if (!waitUntil([&] {
                isRight = !isRight;
                desktop.movePointer(m_panel + place::card + QPoint(isRight ? 1 : 0, 0));
                return isAccent(seen(place::cardOutline));
            })) {
            return false;
        }
        desktop.release(Button::Left);
        return true;
    }
    void type(const QString& text)
    {
        for (const QChar character : text) {
            // The keysym of a Latin-1 character has the character's number.
            const auto key = static_cast<xcb_keysym_t>(character.toLower().unicode());
            desktop.typeKey(key, character.isUpper() ? std::vector<xcb_keysym_t>{XK_Shift_L}
                                                     : std::vector<xcb_keysym_t>{});
        }
    }

    [[nodiscard]] QRgb seen(QPoint inPanel) { return desktop.pixel(m_panel + inPanel); }
    [[nodiscard]] bool sees(QPoint inPanel, QRgb color)
    {
        return waitUntil([&] { return seen(inPanel) == color; });
    }
    [[nodiscard]] bool seesAccent(QPoint inPanel)
    {
        return waitUntil([&] { return isAccent(seen(inPanel)); });
    }
    [[nodiscard]] bool seesDashboard() { return seesAccent(place::pickButton); }
    [[nodiscard]] bool leavesDashboard()
    {
        return waitUntil([&] { return !isAccent(seen(place::pickButton)); });
    }
    [[nodiscard]] bool canTypeInto(const QByteArray& title)
    {
        return waitUntil([&] {
            return desktop.connection().inputIsFree() &&
                   desktop.connection().property(desktop.connection().focusedWindow(), "_NET_WM_NAME") ==
                       title;
        });
    }
    /// Waits until a client, such as a menu, has grabbed the keyboard.
    [[nodiscard]] bool keyboardIsTaken()
    {
        return waitUntil([&] { return !desktop.connection().keyboardIsFree(); });
    }
    [[nodiscard]] bool inputIsGivenBack()
    {
        return waitUntil([&] { return desktop.connection().inputIsFree(); });
    }

    [[nodiscard]] bool openPanel(TintwickProcess& program)
    {
        if (!program.waitForTrayIcon()) {
            return false;
        }
        desktop.clickAt(program.trayIcon().center());
        if (!program.waitForPanel()) {
            return false;
        }
        m_panel = program.panel().topLeft();
        return seesDashboard();
    }

    [[nodiscard]] bool recordsSuperShiftP()
    {
        click(place::gear);
        if (!leavesDashboard() || !canTypeInto("Tintwick")) {
            return false;
        }
        click(place::pickerRecorder);
        if (!keyboardIsTaken()) {
            return false;
        }
        keyboard.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_P});
        if (!waitUntil([&] { return superShiftP.isHeld(other); }) || !inputIsGivenBack()) {
            return false;
        }
        click(place::done);
        return seesDashboard();
    }

    [[nodiscard]] bool picks(TintwickProcess& program, std::size_t patch)
    {
        desktop.movePointer(patchMiddle(patch));
        keyboard.chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_P});
        if (!program.waitForLoupe() || !program.waitForCenterCell(patches.at(patch))) {
            return false;
        }
        desktop.click();
        return program.waitForPickToEnd() && inputIsGivenBack() &&
               program.waitForClipboard(hexText(patches.at(patch)));
    }

    /// Whether the other program gets the key of a shortcut that was removed.
    [[nodiscard]] bool typesOldShortcutIntoOtherProgram()
    {
        otherProgram.focus();
        otherProgram.forgetEvents();
        keyboard.chord({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C});
        const TestWindow::InputEvent press{XCB_KEY_PRESS, KEY_C + 8};
        return waitUntil([&] {
            const auto events = otherProgram.events();
            return std::find(events.begin(), events.end(), press) != events.end();
        });
    }

    /// Chooses "Rename…" in the open menu of a colour, the last item but four, and types the name.
    [[nodiscard]] bool renamesFromMenu(const QString& name)
    {
        if (!keyboardIsTaken()) {
            return false;
        }
        for (int step = 0; step < 5; ++step) {
            desktop.typeKey(XK_Up);
        }
        desktop.typeKey(XK_Return);
        if (!canTypeInto("Tintwick") || !seesAccent(place::save)) {
            return false;
        }
        type(name);
        desktop.typeKey(XK_Return);
        return waitUntil([&] { return !isAccent(seen(place::save)); });
    }

    /// Presses Tab until the focus ring is visible here.
    [[nodiscard]] bool tabsTo(QPoint ring)
    {
        constexpr int enough = 20;
        for (int press = 0; press < enough; ++press) {
            if (isAccent(seen(ring))) {
                return true;
            }
            const QRect panel(m_panel, QSize(380, 580));
            const QImage before = desktop.settledScreenshot(panel);
            desktop.typeKey(XK_Tab);
            if (!waitUntil([&] { return desktop.settledScreenshot(panel) != before; })) {
                return false;
            }
        }
        return false;
    }

    /// Exports the open palette into a file of the home folder by typing its whole path.
    [[nodiscard]] bool exports(Export kind, const QString& name)
    {
        const QString path = pathOf(name);
        click(place::exportMenu);
        if (!keyboardIsTaken()) {
            return false;
        }
        for (int item = 0; item <= static_cast<int>(kind); ++item) {
            desktop.typeKey(XK_Down);
        }
        desktop.typeKey(XK_Return);
        if (!canTypeInto("Save As")) {
            return false;
        }
        // The suggested name is not always selected when the dialog gets the keyboard focus.
        desktop.typeKey(XK_a, {XK_Control_L});
        type(path);
        desktop.typeKey(XK_Return);
        if (!waitUntil([&] { return !contents(path).isEmpty(); })) {
            return false;
        }
        return canTypeInto("Tintwick");
    }

    [[nodiscard]] bool quits(TintwickProcess& program)
    {
        if (!program.openMenu()) {
            return false;
        }
        program.chooseQuit();
        return program.process().waitForEnd() == 0;
    }

    [[nodiscard]] QByteArray exported(const QString& name) const { return contents(pathOf(name)); }
    [[nodiscard]] QByteArray preferences() const
    {
        return contents(desktop.configHome() + u"/Tintwick/Tintwick.conf"_s);
    }

private:
    [[nodiscard]] QString pathOf(const QString& name) const { return desktop.homeFolder() + u'/' + name; }

    QPoint m_panel;
};

QString nameOf(const TintwickProcess& program, int position)
{
    return program.history().at(position).toObject().value("customName"_L1).toString();
}

QJsonValue idOf(const TintwickProcess& program, int position)
{
    return program.history().at(position).toObject().value("id"_L1);
}

QJsonArray colorIds(const TintwickProcess& program)
{
    return program.data().value("collections"_L1).toArray().at(0).toObject().value("colorIds"_L1).toArray();
}

} // namespace

/// All functions in one session, from an empty home folder to the second start.
class ProductWalkTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dataAndPreferencesArePresentAfterARestart_data();
    void dataAndPreferencesArePresentAfterARestart();

private:
    static void checkExports(const User& user);
};

void ProductWalkTest::dataAndPreferencesArePresentAfterARestart_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("without a compositor") << Compositor::None;
    QTest::newRow("with a compositor") << Compositor::Plain;
}

void ProductWalkTest::dataAndPreferencesArePresentAfterARestart()
{
    QFETCH(const Compositor, compositor);
    User user(compositor);
    QByteArray data;
    QByteArray preferences;
    {
        TintwickProcess program(user.desktop);
        QVERIFY(user.openPanel(program));

        // Another shortcut, and five colours with it.
        QVERIFY(user.recordsSuperShiftP());
        QVERIFY(altShiftC.isFree(user.other));
        for (std::size_t patch = 0; patch < patches.size(); ++patch) {
            QVERIFY(user.picks(program, patch));
        }
        QVERIFY(user.typesOldShortcutIntoOtherProgram());
        QVERIFY(!program.loupe());
        QVERIFY(user.sees(place::firstSwatch, patches[4]));

        // Two names: one by the context menu, one by the keyboard only.
        user.click(place::seeAll);
        QVERIFY(user.sees(place::firstTile, patches[4]));
        QVERIFY(user.leavesDashboard());
        user.click(place::firstTile, Button::Right);
        QVERIFY(user.renamesFromMenu(u"Sunrise"_s));
        QVERIFY(waitUntil([&] { return nameOf(program, 0) == u"Sunrise"; }));
        QVERIFY(user.tabsTo(place::secondTileRing));
        user.desktop.typeKey(XK_F10, {XK_Shift_L});
        QVERIFY(user.renamesFromMenu(u"deep sea"_s));
        QVERIFY(waitUntil([&] { return nameOf(program, 1) == u"deep sea"; }));
        user.click(place::back);
        QVERIFY(user.seesDashboard());

        // A palette of three.
        user.click(place::createPalette);
        QVERIFY(user.canTypeInto("Tintwick"));
        user.type(u"Brand"_s);
        QVERIFY(user.seesAccent(place::create));
        user.desktop.typeKey(XK_Return);
        QVERIFY(user.seesDashboard());
        for (int swatch = 0; swatch < 3; ++swatch) {
            QVERIFY(user.dropsOntoCard(place::firstSwatch + QPoint(swatch * place::swatchStep, 0)));
            QVERIFY(waitUntil([&] { return colorIds(program).size() == swatch + 1; }));
        }
        QCOMPARE(colorIds(program), (QJsonArray{idOf(program, 0), idOf(program, 1), idOf(program, 2)}));

        // Move the first to the end.
        user.click(place::card);
        QVERIFY(user.sees(place::firstRowSquare, patches[4]));
        const QPoint twoRows(0, 2 * place::rowStep);
        user.drag(place::firstRowText, place::firstRowText + twoRows);
        QVERIFY(user.sees(place::firstRowSquare + twoRows, patches[4]));
        QVERIFY(user.sees(place::firstRowSquare, patches[3]));
        user.desktop.release(Button::Left);
        const QJsonArray reordered{idOf(program, 1), idOf(program, 2), idOf(program, 0)};
        QVERIFY(waitUntil([&] { return colorIds(program) == reordered; }));

        QVERIFY(user.exports(Export::Css, u"brand.css"_s));
        QVERIFY(user.exports(Export::Json, u"brand.json"_s));
        QVERIFY(user.exports(Export::Png, u"brand.png"_s));
        checkExports(user);
        if (QTest::currentTestFailed()) {
            return;
        }

        QVERIFY(user.quits(program));
        QCOMPARE(program.process().standardOutput(), QByteArray());
        QCOMPARE(program.process().standardError(), QByteArray());
        data = contents(program.dataFile());
        preferences = user.preferences();
    }
    QCOMPARE(preferences, QByteArray("[General]\nKeyboardShortcuts_activatePicker="
                                     "\"{\\\"carbonKeyCode\\\":35,\\\"carbonModifiers\\\":768}\"\n"));

    TintwickProcess program(user.desktop);
    QVERIFY(user.openPanel(program));
    QVERIFY(user.sees(place::firstSwatch, patches[4]));
    QVERIFY(user.sees(place::cardPreview[0], patches[3]));
    QVERIFY(user.sees(place::cardPreview[1], patches[2]));
    QVERIFY(user.sees(place::cardPreview[2], patches[4]));
    QCOMPARE(contents(program.dataFile()), data);
    QCOMPARE(user.preferences(), preferences);
    QVERIFY(superShiftP.isHeld(user.other));
    QVERIFY(altShiftC.isFree(user.other));
    QVERIFY(user.picks(program, 1));
    QCOMPARE(program.history().size(), 6);
}

void ProductWalkTest::checkExports(const User& user)
{
    QCOMPARE(user.exported(u"brand.css"_s), QByteArray("/* Brand — generated by Tintwick */\n"
                                                       ":root {\n"
                                                       "  --deep-sea: #CC3366;\n"
                                                       "  --sea-green: #22AA44;\n"
                                                       "  --sunrise: #FFEE00;\n"
                                                       "}"));

    const QJsonArray colors = QJsonDocument::fromJson(user.exported(u"brand.json"_s)).array();
    const QJsonArray expected{QJsonObject{{u"hex"_s, u"#CC3366"_s},
                                          {u"rgb"_s, u"rgb(204, 51, 102)"_s},
                                          {u"hsl"_s, u"hsl(340, 60%, 50%)"_s},
                                          {u"name"_s, u"deep sea"_s},
                                          {u"tailwind"_s, u"pink-600"_s}},
                              QJsonObject{{u"hex"_s, u"#22AA44"_s},
                                          {u"rgb"_s, u"rgb(34, 170, 68)"_s},
                                          {u"hsl"_s, u"hsl(135, 67%, 40%)"_s},
                                          {u"name"_s, u"Sea Green"_s},
                                          {u"tailwind"_s, u"green-600"_s}},
                              QJsonObject{{u"hex"_s, u"#FFEE00"_s},
                                          {u"rgb"_s, u"rgb(255, 238, 0)"_s},
                                          {u"hsl"_s, u"hsl(56, 100%, 50%)"_s},
                                          {u"name"_s, u"Sunrise"_s},
                                          {u"tailwind"_s, u"yellow-400"_s}}};
    QCOMPARE(colors, expected);

    const QImage swatches = QImage::fromData(user.exported(u"brand.png"_s), "PNG");
    QCOMPARE(swatches.size(), QSize(196, 68));
    QCOMPARE(swatches.pixel(2, 34), qRgb(38, 38, 38));
    QCOMPARE(swatches.pixel(34, 34), patches[3]);
    QCOMPARE(swatches.pixel(98, 34), patches[2]);
    QCOMPARE(swatches.pixel(162, 34), patches[4]);
}

QTEST_GUILESS_MAIN(ProductWalkTest)
#include "ProductWalkTest.moc"

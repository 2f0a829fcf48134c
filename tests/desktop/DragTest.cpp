#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

using namespace tintwick;

namespace {

using namespace Qt::StringLiterals;

using Button = PrivateDesktop::Button;
using Compositor = PrivateDesktop::Compositor;

const QString red = u"3F2504E0-4F89-41D3-9A0C-0305E82C3301"_s;
const QString green = u"3F2504E0-4F89-41D3-9A0C-0305E82C3302"_s;
const QString unknown = u"3F2504E0-4F89-41D3-9A0C-0305E82C33FF"_s;

// In pixels from the top left corner of the panel.
namespace place {

/// A pixel that is blue on the dashboard and on no other screen.
constexpr QPoint pickButton(190, 72);
constexpr QPoint seeAll(340, 147);
constexpr QPoint firstSwatch(47, 200);
constexpr QPoint card(190, 355);
constexpr QPoint cardOutline(16, 355);
constexpr QPoint secondSwatch(121, 200);
constexpr QPoint firstSwatchOutline(17, 200);
constexpr QPoint firstTile(46, 143);
constexpr QPoint secondTile(118, 143);
constexpr QPoint firstTileOutline(23, 143);
constexpr QPoint paletteMiddle(190, 400);
constexpr QPoint paletteOutline(6, 400);
/// On the screen of a contrast, in both samples and outside their texts.
constexpr QPoint sample(22, 150);
constexpr QPoint swappedSample(202, 150);

} // namespace place

constexpr QPoint bareDesktop(100, 700);

/// A red and a green colour, and a palette of those with `colorIds`.
void keepColors(const PrivateDesktop& desktop, const QStringList& colorIds)
{
    const QString folder = desktop.dataHome() + u"/Tintwick"_s;
    QVERIFY(QDir().mkpath(folder));
    QFile file(folder + u"/data.json"_s);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const auto color = [](const QString& id, const char* components) {
        return R"({"id": ")" + id.toUtf8() + R"(", )" + components +
               R"(, "blue": 0, "alpha": 1, "capturedAt": "2026-01-02T03:04:05Z"})";
    };
    const QByteArray quote = colorIds.isEmpty() ? "" : "\"";
    file.write(
        R"({"history": [)" + color(red, R"("red": 1, "green": 0)") + ", " +
        color(green, R"("red": 0, "green": 1)") +
        R"(], "collections": [{"id": "7D444840-9DC0-11D1-B245-5FFDCE74FAD2", "name": "Brand", "colorIds": [)" +
        quote + colorIds.join(uR"(", ")"_s).toUtf8() + quote +
        R"(], "createdAt": "2026-01-02T03:04:05Z", "icon": "paintpalette.fill"}], "defaultFormat": "HEX"})");
}

QStringList keptIds(const TintwickProcess& program)
{
    const QJsonArray collections = program.data().value("collections"_L1).toArray();
    QStringList result;
    for (const QJsonValue id : collections.first().toObject().value("colorIds"_L1).toArray()) {
        result.append(id.toString());
    }
    return result;
}

/// Another program: a text that can be dragged, and below it a field that accepts texts.
class OtherProgram final
{
public:
    OtherProgram(PrivateDesktop& desktop, const QString& text)
        : m_connection(desktop.connection())
        , m_process(desktop.start(QStringLiteral(TEXT_PROGRAM), {text}))
    {
    }

    [[nodiscard]] bool waitForWindow()
    {
        return waitUntil([this] {
            const auto windows = m_connection.tree(m_connection.root());
            const auto found = std::ranges::find_if(windows, [this](xcb_window_t window) {
                return m_connection.property(window, "_NET_WM_NAME") == "Text Program" &&
                       m_connection.isViewable(window);
            });
            if (found == windows.end()) {
                return false;
            }
            m_place = m_connection.geometry(*found);
            return true;
        });
    }
    [[nodiscard]] QPoint text() const { return m_place.center() - QPoint(0, m_place.height() / 4); }
    [[nodiscard]] QPoint field() const { return m_place.center() + QPoint(0, m_place.height() / 4); }

    /// The lines that it printed.
    [[nodiscard]] QByteArrayList said() const { return m_process->standardOutput().trimmed().split('\n'); }
    [[nodiscard]] bool waitUntilItSays(const QByteArray& line) const
    {
        return waitUntil([&] { return said().contains(line); });
    }

private:
    DesktopConnection& m_connection;
    std::unique_ptr<RunningProgram> m_process;
    QRect m_place;
};

/// The panel and another program side by side.
class Scene final
{
public:
    Scene(const QStringList& colorIds, const QString& text, Compositor compositor = Compositor::None)
        : desktop({.compositor = compositor})
        , other(desktop, text)
    {
        keepColors(desktop, colorIds);
        program.emplace(desktop);
    }

    PrivateDesktop desktop;
    OtherProgram other;
    std::optional<TintwickProcess> program;

    [[nodiscard]] QPoint at(QPoint inPanel) const { return m_panel + inPanel; }

    void click(QPoint position, Button button = Button::Left)
    {
        desktop.movePointer(position);
        desktop.click(button);
    }

    [[nodiscard]] bool openPanel()
    {
        if (!other.waitForWindow() || !program->waitForTrayIcon()) {
            return false;
        }
        click(program->trayIcon().center());
        if (!program->waitForPanel()) {
            return false;
        }
        m_panel = program->panel().topLeft();
        return waitUntil([this] { return showsDashboard(); });
    }
    [[nodiscard]] bool openPalette()
    {
        click(at(place::card));
        return waitUntil([this] { return !showsDashboard(); });
    }
    [[nodiscard]] bool openHistory()
    {
        click(at(place::seeAll));
        return waitUntil([this] { return desktop.pixel(at(place::firstTile)) == qRgb(255, 0, 0); });
    }

    /// Presses the button there, and moves the pointer until a drag starts.
    [[nodiscard]] bool beginDrag(QPoint from)
    {
        desktop.movePointer(from);
        desktop.press(Button::Left);
        return moveUntil(from + QPoint(0, 20),
                         [this] { return desktop.connection().selectionOwner("XdndSelection") != XCB_NONE; });
    }
    /// Drags to a place, and moves the pointer there until the condition holds.
    [[nodiscard]] bool moveUntil(QPoint to, const std::function<bool()>& condition)
    {
        int step = 0;
        return waitUntil([&] {
            desktop.movePointer(to + QPoint(++step % 2, 0));
            return condition();
        });
    }
    /// Drags to a place in the panel until the panel shows at `outline` that it accepts the drop.
    [[nodiscard]] bool dragOver(QPoint target, QPoint outline)
    {
        const QImage atRest = desktop.settledScreenshot({at(outline), QSize(1, 1)});
        return moveUntil(at(target), [&] { return desktop.pixel(at(outline)) != atRest.pixel(0, 0); });
    }
    /// Waits until the panel shows green text on red.
    [[nodiscard]] bool waitForContrast()
    {
        return waitUntil([this] {
            return desktop.pixel(at(place::sample)) == qRgb(255, 0, 0) &&
                   desktop.pixel(at(place::swappedSample)) == qRgb(0, 255, 0);
        });
    }
    /// Whether the panel is still visible after all input was processed.
    [[nodiscard]] bool panelStays()
    {
        static_cast<void>(desktop.settledScreenshot());
        return !program->panel().isEmpty();
    }
    /// Whether a click elsewhere hides the panel.
    [[nodiscard]] bool clickElsewhereHides()
    {
        click(bareDesktop);
        return program->waitForPanelToHide();
    }

private:
    [[nodiscard]] bool showsDashboard()
    {
        const QRgb color = desktop.pixel(at(place::pickButton));
        return qBlue(color) - qRed(color) > 60;
    }

    QPoint m_panel;
};

} // namespace

/// Drags between the panel and another program.
class DragTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTextWithAnIdIsDroppedOntoACard_data();
    void aTextWithAnIdIsDroppedOntoACard();
    void aTextWithAnIdIsDroppedOntoAPalette_data();
    void aTextWithAnIdIsDroppedOntoAPalette();
    void anotherButtonDuringADragDoesNotHideThePanel();
    void aClickInTheOtherProgramHidesThePanel_data();
    void aClickInTheOtherProgramHidesThePanel();
    void selectingTextHidesThePanelAtTheRelease();
    void pressingTwoButtonsIsOneClick();
    void aReleaseWithoutAPressIsNoClick();
    void aColorIsDraggedToTheOtherProgram_data();
    void aColorIsDraggedToTheOtherProgram();
    void aDraggedColorHasNoEdgeOfAnotherColor_data();
    void aDraggedColorHasNoEdgeOfAnotherColor();
    void aColorDroppedOntoNothingDoesNotHideThePanel();
    void afterADropInThePanelTheSwatchIsAtRest_data();
    void afterADropInThePanelTheSwatchIsAtRest();
    void aColorDroppedOntoAnotherOpensTheirContrast_data();
    void aColorDroppedOntoAnotherOpensTheirContrast();
    void aTextDroppedOntoAColorOpensTheirContrast();
    void aColorDroppedOntoItselfOpensNothing();
};

void DragTest::aTextWithAnIdIsDroppedOntoACard_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("added");
    QTest::newRow("an id") << Compositor::None << green << QStringList{green};
    QTest::newRow("an id, with a compositor") << Compositor::Plain << green << QStringList{green};
    QTest::newRow("an id in small letters")
        << Compositor::None << u"3f2504e0-4f89-41d3-9a0c-0305e82c3302"_s << QStringList{green};
    QTest::newRow("an id in braces") << Compositor::None << u"{%1}"_s.arg(green) << QStringList();
    QTest::newRow("two ids and a word")
        << Compositor::None << green + u"\nsea\n"_s + red << QStringList{green, red};
    QTest::newRow("a word") << Compositor::None << u"sea"_s << QStringList();
    QTest::newRow("an id of no colour") << Compositor::None << unknown << QStringList{unknown};
}

void DragTest::aTextWithAnIdIsDroppedOntoACard()
{
    QFETCH(const Compositor, compositor);
    QFETCH(const QString, text);
    QFETCH(const QStringList, added);
    Scene scene({}, text, compositor);
    QVERIFY(scene.openPanel());
    QVERIFY(scene.beginDrag(scene.other.text()));
    QVERIFY(scene.dragOver(place::card, place::cardOutline));
    scene.desktop.release(Button::Left);
    QVERIFY(scene.other.waitUntilItSays("copied"));
    QVERIFY(waitUntil([&] { return keptIds(*scene.program) == added; }));
    QVERIFY(scene.panelStays());
    QVERIFY(scene.clickElsewhereHides());
    QCOMPARE(keptIds(*scene.program), added);
}

void DragTest::aTextWithAnIdIsDroppedOntoAPalette_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("empty") << QStringList() << green << QStringList{green};
    QTest::newRow("with a colour") << QStringList{red} << green << QStringList{red, green};
    QTest::newRow("with that colour") << QStringList{green, red} << green << QStringList{green, red};
    QTest::newRow("no id") << QStringList{red} << u"sea"_s << QStringList{red};
}

void DragTest::aTextWithAnIdIsDroppedOntoAPalette()
{
    QFETCH(const QStringList, before);
    QFETCH(const QString, text);
    QFETCH(const QStringList, after);
    Scene scene(before, text);
    QVERIFY(scene.openPanel());
    QVERIFY(scene.openPalette());
    QVERIFY(scene.beginDrag(scene.other.text()));
    QVERIFY(scene.dragOver(place::paletteMiddle, place::paletteOutline));
    scene.desktop.release(Button::Left);
    QVERIFY(scene.other.waitUntilItSays("copied"));
    QVERIFY(waitUntil([&] { return keptIds(*scene.program) == after; }));
    QVERIFY(scene.panelStays());
    QVERIFY(scene.clickElsewhereHides());
    QCOMPARE(keptIds(*scene.program), after);
}

void DragTest::anotherButtonDuringADragDoesNotHideThePanel()
{
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    QVERIFY(scene.beginDrag(scene.other.text()));
    // The toolkit of the other program ends the drag when the first button is released.
    scene.desktop.click(Button::Right);
    QVERIFY(scene.other.waitUntilItSays("not taken"));
    scene.desktop.release(Button::Left);
    QVERIFY(waitUntil([&] { return scene.desktop.connection().inputIsFree(); }));
    QVERIFY(scene.panelStays());
    QVERIFY(scene.clickElsewhereHides());
}

void DragTest::aClickInTheOtherProgramHidesThePanel_data()
{
    QTest::addColumn<Button>("button");
    QTest::newRow("left") << Button::Left;
    QTest::newRow("right") << Button::Right;
}

void DragTest::aClickInTheOtherProgramHidesThePanel()
{
    QFETCH(const Button, button);
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    // An earlier drag has no effect.
    QVERIFY(scene.beginDrag(scene.other.text()));
    QVERIFY(scene.moveUntil(bareDesktop, [] { return true; }));
    scene.desktop.release(Button::Left);
    QVERIFY(scene.other.waitUntilItSays("not taken"));
    QVERIFY(scene.panelStays());

    scene.click(scene.other.text(), button);
    QVERIFY(scene.program->waitForPanelToHide());
    QVERIFY(waitUntil([&] { return scene.other.said().count("pressed") == 2; }));
}

void DragTest::selectingTextHidesThePanelAtTheRelease()
{
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    scene.desktop.movePointer(scene.other.field());
    scene.desktop.press(Button::Left);
    scene.desktop.movePointer(scene.other.field() - QPoint(80, 0));
    QVERIFY(scene.panelStays());
    scene.desktop.release(Button::Left);
    QVERIFY(scene.program->waitForPanelToHide());
}

void DragTest::pressingTwoButtonsIsOneClick()
{
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    scene.desktop.movePointer(scene.other.text());
    scene.desktop.press(Button::Left);
    scene.desktop.click(Button::Right);
    scene.desktop.scroll(1);
    QVERIFY(waitUntil([&] { return scene.other.said().count("pressed") == 2; }));
    QVERIFY(scene.panelStays());
    scene.desktop.release(Button::Left);
    QVERIFY(scene.program->waitForPanelToHide());
}

void DragTest::aReleaseWithoutAPressIsNoClick()
{
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    scene.desktop.movePointer(scene.other.text());
    scene.desktop.press(Button::Left);
    QVERIFY(scene.other.waitUntilItSays("pressed"));
    // The panel is hidden and shown again while the button is down.
    scene.program->clickIconWithoutPointer();
    QVERIFY(scene.program->waitForPanelToHide());
    scene.program->clickIconWithoutPointer();
    QVERIFY(scene.program->waitForPanel());
    scene.desktop.release(Button::Left);
    QVERIFY(scene.panelStays());
    QVERIFY(scene.clickElsewhereHides());
}

void DragTest::aColorIsDraggedToTheOtherProgram_data()
{
    QTest::addColumn<bool>("fromHistory");
    QTest::newRow("from the recent row") << false;
    QTest::newRow("from the grid of the history") << true;
}

void DragTest::aColorIsDraggedToTheOtherProgram()
{
    QFETCH(const bool, fromHistory);
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    QVERIFY(!fromHistory || scene.openHistory());
    const QPoint swatch = scene.at(fromHistory ? place::firstTile : place::firstSwatch);
    const QRect around(swatch - QPoint(35, 35), QSize(70, 70));
    scene.desktop.movePointer(bareDesktop);
    const QImage atRest = scene.desktop.settledScreenshot(around);
    QVERIFY(scene.beginDrag(swatch));
    // It is asked again only after it answered that it accepts the text.
    QVERIFY(
        scene.moveUntil(scene.other.field(), [&] { return scene.other.said().count("dragged over") >= 2; }));
    scene.desktop.release(Button::Left);
    QVERIFY(scene.other.waitUntilItSays("received " + red.toLatin1()));
    QVERIFY(scene.panelStays());
    // The swatch no longer looks hovered.
    QVERIFY(waitUntil([&] { return scene.desktop.settledScreenshot(around) == atRest; }));
    QVERIFY(scene.clickElsewhereHides());
    QCOMPARE(scene.desktop.clipboard(), QByteArray());
}

void DragTest::aColorDroppedOntoNothingDoesNotHideThePanel()
{
    Scene scene({red}, green);
    QVERIFY(scene.openPanel());
    QVERIFY(scene.beginDrag(scene.at(place::firstSwatch)));
    QVERIFY(scene.moveUntil(bareDesktop, [] { return true; }));
    scene.desktop.release(Button::Left);
    QVERIFY(waitUntil([&] { return scene.desktop.connection().inputIsFree(); }));
    QVERIFY(scene.panelStays());
    QVERIFY(scene.clickElsewhereHides());
    QCOMPARE(scene.desktop.clipboard(), QByteArray());
    QCOMPARE(keptIds(*scene.program), QStringList{red});
}

void DragTest::aDraggedColorHasNoEdgeOfAnotherColor_data()
{
    QTest::addColumn<bool>("fromHistory");
    QTest::newRow("from the recent row") << false;
    QTest::newRow("from the grid of the history") << true;
}

// Without a compositor.
void DragTest::aDraggedColorHasNoEdgeOfAnotherColor()
{
    QFETCH(const bool, fromHistory);
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    QVERIFY(!fromHistory || scene.openHistory());
    QVERIFY(scene.beginDrag(scene.at(fromHistory ? place::firstTile : place::firstSwatch)));
    const QRgb ground = scene.desktop.pixel(bareDesktop);
    QVERIFY(
        scene.moveUntil(bareDesktop, [&] { return scene.desktop.pixel(bareDesktop) == qRgb(255, 0, 0); }));
    const QImage picture = scene.desktop.settledScreenshot({bareDesktop - QPoint(80, 80), QSize(160, 160)});
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            // The edge of a swatch is a quarter darker than its colour.
            const bool isOfSwatch = qRed(pixel) >= 190 && qGreen(pixel) <= 40 && qBlue(pixel) <= 40;
            QVERIFY2(pixel == ground || isOfSwatch, QByteArray::number(pixel, 16).constData());
        }
    }
    scene.desktop.release(Button::Left);
}

void DragTest::afterADropInThePanelTheSwatchIsAtRest_data()
{
    QTest::addColumn<QPoint>("target");
    QTest::newRow("onto a card") << place::card;
    QTest::newRow("onto nothing") << QPoint(190, 30);
}

void DragTest::afterADropInThePanelTheSwatchIsAtRest()
{
    QFETCH(const QPoint, target);
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    const QRect around(scene.at(place::firstSwatch) - QPoint(35, 35), QSize(70, 70));
    const QImage atRest = scene.desktop.settledScreenshot(around);
    for (int round = 0; round < 3; ++round) {
        QVERIFY(scene.beginDrag(scene.at(place::firstSwatch)));
        for (int step = 0; step <= 10; ++step) {
            scene.desktop.movePointer(
                scene.at(place::firstSwatch + (target - place::firstSwatch) * step / 10));
        }
        scene.desktop.release(Button::Left);
        QVERIFY(waitUntil([&] { return scene.desktop.connection().inputIsFree(); }));
        QVERIFY(waitUntil([&] { return scene.desktop.settledScreenshot(around) == atRest; }));
        scene.desktop.movePointer(bareDesktop);
    }
}

void DragTest::aColorDroppedOntoAnotherOpensTheirContrast_data()
{
    QTest::addColumn<bool>("inHistory");
    QTest::newRow("in the recent row") << false;
    QTest::newRow("in the grid of the history") << true;
}

void DragTest::aColorDroppedOntoAnotherOpensTheirContrast()
{
    QFETCH(const bool, inHistory);
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    QVERIFY(!inHistory || scene.openHistory());
    QVERIFY(scene.beginDrag(scene.at(inHistory ? place::secondTile : place::secondSwatch)));
    // Beside the middle, so that the dragged picture leaves the outline free.
    constexpr QPoint beside(20, 0);
    QVERIFY(scene.dragOver((inHistory ? place::firstTile : place::firstSwatch) + beside,
                           inHistory ? place::firstTileOutline : place::firstSwatchOutline));
    scene.desktop.release(Button::Left);
    QVERIFY(scene.waitForContrast());
    QVERIFY(scene.panelStays());
    QVERIFY(scene.clickElsewhereHides());
    QCOMPARE(keptIds(*scene.program), QStringList());
    QCOMPARE(scene.desktop.clipboard(), QByteArray());
}

void DragTest::aTextDroppedOntoAColorOpensTheirContrast()
{
    Scene scene({}, u"rgb(0 255 0)"_s);
    QVERIFY(scene.openPanel());
    QVERIFY(scene.beginDrag(scene.other.text()));
    QVERIFY(scene.dragOver(place::firstSwatch + QPoint(20, 0), place::firstSwatchOutline));
    scene.desktop.release(Button::Left);
    QVERIFY(scene.other.waitUntilItSays("copied"));
    QVERIFY(scene.waitForContrast());
}

void DragTest::aColorDroppedOntoItselfOpensNothing()
{
    Scene scene({}, green);
    QVERIFY(scene.openPanel());
    const QRect around(scene.at(place::firstSwatch) - QPoint(35, 35), QSize(70, 70));
    const QImage atRest = scene.desktop.settledScreenshot(around);
    QVERIFY(scene.beginDrag(scene.at(place::firstSwatch)));
    scene.desktop.movePointer(scene.at(place::firstSwatch));
    scene.desktop.release(Button::Left);
    QVERIFY(waitUntil([&] { return scene.desktop.connection().inputIsFree(); }));
    scene.desktop.movePointer(bareDesktop);
    QVERIFY(waitUntil([&] { return scene.desktop.settledScreenshot(around) == atRest; }));
    QCOMPARE(scene.desktop.clipboard(), QByteArray());
}

QTEST_GUILESS_MAIN(DragTest)
#include "DragTest.moc"

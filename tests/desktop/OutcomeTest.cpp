#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QTest>
#include <QTimeZone>

#include <X11/keysym.h>

using namespace tintwick;

using Keys = std::vector<xcb_keysym_t>;

Q_DECLARE_METATYPE(Keys)

/// A pick from the menu of the tray icon to the clipboard and the data file.
class OutcomeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPickIsCopiedNamedAndSaved_data();
    void aPickIsCopiedNamedAndSaved();
    void theNewestPickIsTheFirst();
    void dataFolderAndFileArePrivate();
    void escapeChangesNothing_data();
    void escapeChangesNothing();
    void returnAndSpacePickTheColor_data();
    void returnAndSpacePickTheColor();
    void arrowKeysMoveThePointer_data();
    void arrowKeysMoveThePointer();
    void theWheelZooms();
    void keysZoom_data();
    void keysZoom();
    void everyPickStartsWithTheDefaultZoom();
    void aTextCopiedElsewhereDuringThePickIsReplaced();
    void aFrozenSessionBusDelaysNoPick();
    void quitEndsTheProgramWithSuccess();
    void unsupportedDesktopsAreReportedInOneLine_data();
    void unsupportedDesktopsAreReportedInOneLine();
};

namespace {

QByteArray fileContents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

constexpr int defaultRadius = 7;
const QPoint middle(640, 400);

// The outermost cells differ between zoom levels; the outline of the centre cell may cover its neighbours.
bool showsRadius(TintwickProcess& program, int radius)
{
    for (const int offset : {-radius, -2, 0, 2, radius}) {
        if (program.cell(offset, 0, radius) != patternPixel(middle.x() + offset, middle.y()) ||
            program.cell(0, offset, radius) != patternPixel(middle.x(), middle.y() + offset)) {
            return false;
        }
    }
    return true;
}

} // namespace

void OutcomeTest::aPickIsCopiedNamedAndSaved_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<TintwickProcess::ChosenBy>("chosenBy");

    using ChosenBy = TintwickProcess::ChosenBy;
    QTest::newRow("Dodger Blue, by pointer") << QColor(30, 144, 255) << QByteArray("#1E90FF")
                                             << QStringLiteral("Dodger Blue") << ChosenBy::Pointer;
    QTest::newRow("Dodger Blue, by keys")
        << QColor(30, 144, 255) << QByteArray("#1E90FF") << QStringLiteral("Dodger Blue") << ChosenBy::Keys;
    QTest::newRow("Black") << QColor(0, 0, 0) << QByteArray("#000000") << QStringLiteral("Black")
                           << ChosenBy::Pointer;
    QTest::newRow("White") << QColor(255, 255, 255) << QByteArray("#FFFFFF") << QStringLiteral("White")
                           << ChosenBy::Pointer;
}

void OutcomeTest::aPickIsCopiedNamedAndSaved()
{
    QFETCH(const QColor, color);
    QFETCH(const QByteArray, text);
    QFETCH(const QString, name);
    QFETCH(const TintwickProcess::ChosenBy, chosenBy);
    PrivateDesktop desktop({});
    TestWindow patch(desktop.connection(), {.geometry = {500, 300, 300, 200}});
    patch.setColor(color);
    patch.show();
    TintwickProcess program(desktop);
    const QDateTime before = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch());
    QVERIFY(program.startPicking(chosenBy));
    desktop.movePointer(middle);
    QVERIFY(program.waitForCenterCell(color.rgb()));
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY2(program.waitForClipboard(text), desktop.clipboard().constData());
    QVERIFY(waitUntil([&] { return program.history().size() == 1; }));

    QCOMPARE(program.data().value(QLatin1StringView("defaultFormat")).toString(), QStringLiteral("HEX"));
    QCOMPARE(program.data().value(QLatin1StringView("collections")), QJsonValue(QJsonArray()));
    const QJsonObject record = program.history().first().toObject();
    QCOMPARE(record.value(QLatin1StringView("customName")).toString(), name);
    QCOMPARE(record.value(QLatin1StringView("red")).toDouble(), color.red() / 255.0);
    QCOMPARE(record.value(QLatin1StringView("green")).toDouble(), color.green() / 255.0);
    QCOMPARE(record.value(QLatin1StringView("blue")).toDouble(), color.blue() / 255.0);
    QCOMPARE(record.value(QLatin1StringView("alpha")).toDouble(), 1.0);
    const QDateTime captured = QDateTime::fromString(record.value(QLatin1StringView("capturedAt")).toString(),
                                                     QStringLiteral("yyyy-MM-dd'T'HH:mm:ss'Z'"));
    QVERIFY(captured.isValid());
    const QDateTime capturedUtc(captured.date(), captured.time(), QTimeZone::utc());
    QVERIFY(capturedUtc >= before && capturedUtc <= QDateTime::currentDateTimeUtc());
}

void OutcomeTest::theNewestPickIsTheFirst()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    const QPoint positions[] = {{300, 300}, {900, 300}, {300, 300}};
    int count = 0;
    for (const QPoint position : positions) {
        QVERIFY(program.startPicking());
        desktop.movePointer(position);
        desktop.click();
        QVERIFY(program.waitForPickToEnd());
        ++count;
        QVERIFY(waitUntil([&] { return program.history().size() == count; }));
        const QRgb expected = patternPixel(position.x(), position.y());
        const QJsonObject newest = program.history().first().toObject();
        QCOMPARE(newest.value(QLatin1StringView("red")).toDouble(), qRed(expected) / 255.0);
        QCOMPARE(newest.value(QLatin1StringView("green")).toDouble(), qGreen(expected) / 255.0);
        QCOMPARE(newest.value(QLatin1StringView("blue")).toDouble(), qBlue(expected) / 255.0);
    }
}

void OutcomeTest::dataFolderAndFileArePrivate()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    desktop.click();
    QVERIFY(waitUntil([&] { return program.history().size() == 1; }));
    constexpr auto own = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    // Qt reports the permissions of the owner also as those of the user.
    constexpr auto ownAndUser = own | QFileDevice::ReadUser | QFileDevice::WriteUser;
    QCOMPARE(QFileInfo(program.dataFile()).permissions(), QFileDevice::Permissions(ownAndUser));
    QCOMPARE(QFileInfo(program.dataFolder()).permissions(),
             QFileDevice::Permissions(ownAndUser | QFileDevice::ExeOwner | QFileDevice::ExeUser));
    QCOMPARE(QDir(program.dataFolder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
             QStringList{QStringLiteral("data.json")});
}

void OutcomeTest::escapeChangesNothing_data()
{
    QTest::addColumn<bool>("hasPickedBefore");
    QTest::newRow("first run") << false;
    QTest::newRow("with a colour in the history") << true;
}

void OutcomeTest::escapeChangesNothing()
{
    QFETCH(const bool, hasPickedBefore);
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    if (hasPickedBefore) {
        QVERIFY(program.startPicking());
        desktop.movePointer(middle);
        desktop.click();
        QVERIFY(waitUntil([&] { return program.history().size() == 1; }));
    }
    desktop.takeClipboard("precious");
    const QByteArray before = fileContents(program.dataFile());
    const QDateTime modified = QFileInfo(program.dataFile()).lastModified();

    QVERIFY(program.startPicking());
    desktop.movePointer({200, 600});
    QVERIFY(program.waitForCenterCell(patternPixel(200, 600)));
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPickToEnd());
    // The program processes the next click.
    QVERIFY(program.openMenu());
    QCOMPARE(desktop.clipboard(), QByteArray("precious"));
    QCOMPARE(QFile::exists(program.dataFile()), hasPickedBefore);
    QCOMPARE(fileContents(program.dataFile()), before);
    QCOMPARE(QFileInfo(program.dataFile()).lastModified(), modified);
}

void OutcomeTest::returnAndSpacePickTheColor_data()
{
    QTest::addColumn<xcb_keysym_t>("key");
    QTest::newRow("Return") << xcb_keysym_t{XK_Return};
    QTest::newRow("Enter on the keypad") << xcb_keysym_t{XK_KP_Enter};
    QTest::newRow("Space") << xcb_keysym_t{XK_space};
}

void OutcomeTest::returnAndSpacePickTheColor()
{
    QFETCH(const xcb_keysym_t, key);
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(program.waitForCenterCell(patternPixel(middle.x(), middle.y())));
    desktop.typeKey(key);
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForClipboard(hexText(patternPixel(middle.x(), middle.y()))));
}

void OutcomeTest::arrowKeysMoveThePointer_data()
{
    QTest::addColumn<xcb_keysym_t>("key");
    QTest::addColumn<Keys>("held");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::newRow("left") << xcb_keysym_t{XK_Left} << Keys{} << QPoint(640, 400) << QPoint(639, 400);
    QTest::newRow("right") << xcb_keysym_t{XK_Right} << Keys{} << QPoint(640, 400) << QPoint(641, 400);
    QTest::newRow("up") << xcb_keysym_t{XK_Up} << Keys{} << QPoint(640, 400) << QPoint(640, 399);
    QTest::newRow("down") << xcb_keysym_t{XK_Down} << Keys{} << QPoint(640, 400) << QPoint(640, 401);
    QTest::newRow("left, by ten") << xcb_keysym_t{XK_Left} << Keys{XK_Shift_L} << QPoint(640, 400)
                                  << QPoint(630, 400);
    QTest::newRow("down, by ten") << xcb_keysym_t{XK_Down} << Keys{XK_Shift_L} << QPoint(640, 400)
                                  << QPoint(640, 410);
    QTest::newRow("not off the screen")
        << xcb_keysym_t{XK_Left} << Keys{XK_Shift_L} << QPoint(3, 400) << QPoint(0, 400);
}

void OutcomeTest::arrowKeysMoveThePointer()
{
    QFETCH(const xcb_keysym_t, key);
    QFETCH(const Keys, held);
    QFETCH(const QPoint, from);
    QFETCH(const QPoint, to);
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(from);
    QVERIFY(program.waitForCenterCell(patternPixel(from.x(), from.y())));
    desktop.typeKey(key, held);
    QVERIFY(program.waitForCenterCell(patternPixel(to.x(), to.y())));
    QCOMPARE(desktop.pointer(), to);
}

void OutcomeTest::theWheelZooms()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    const auto waitForRadius = [&](int radius) {
        return waitUntil([&] { return showsRadius(program, radius); });
    };
    QVERIFY(waitForRadius(defaultRadius));
    // A notch is three of the five units of a step, and the rest carries over.
    desktop.scroll(2);
    QVERIFY(waitForRadius(6));
    desktop.scroll(2);
    QVERIFY(waitForRadius(5));
    desktop.scroll(-4);
    QVERIFY(waitForRadius(7));
    desktop.scroll(-40);
    QVERIFY(waitForRadius(15));
    desktop.scroll(40);
    QVERIFY(waitForRadius(3));
}

void OutcomeTest::keysZoom_data()
{
    QTest::addColumn<xcb_keysym_t>("key");
    QTest::addColumn<xcb_keysym_t>("held");
    QTest::addColumn<int>("radius");
    QTest::newRow("Control and =") << xcb_keysym_t{XK_equal} << xcb_keysym_t{XK_Control_L} << 6;
    QTest::newRow("Control and -") << xcb_keysym_t{XK_minus} << xcb_keysym_t{XK_Control_L} << 8;
    QTest::newRow("Super and =") << xcb_keysym_t{XK_equal} << xcb_keysym_t{XK_Super_L} << 6;
    QTest::newRow("Super and -") << xcb_keysym_t{XK_minus} << xcb_keysym_t{XK_Super_L} << 8;
}

void OutcomeTest::keysZoom()
{
    QFETCH(const xcb_keysym_t, key);
    QFETCH(const xcb_keysym_t, held);
    QFETCH(const int, radius);
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(waitUntil([&] { return showsRadius(program, defaultRadius); }));
    // Without a modifier the key has no effect.
    desktop.typeKey(key);
    desktop.typeKey(key, {held});
    QVERIFY(waitUntil([&] { return showsRadius(program, radius); }));
}

void OutcomeTest::everyPickStartsWithTheDefaultZoom()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    desktop.typeKey(XK_equal, {XK_Control_L});
    QVERIFY(waitUntil([&] { return showsRadius(program, 6); }));
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(waitUntil([&] { return showsRadius(program, defaultRadius); }));
}

void OutcomeTest::aTextCopiedElsewhereDuringThePickIsReplaced()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(program.waitForCenterCell(patternPixel(middle.x(), middle.y())));
    desktop.takeClipboard("theirs");
    QCOMPARE(desktop.clipboard(), QByteArray("theirs"));
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForClipboard(hexText(patternPixel(middle.x(), middle.y()))));
}

void OutcomeTest::aFrozenSessionBusDelaysNoPick()
{
    PrivateDesktop desktop({.sessionBus = true});
    desktop.freezeSessionBus();
    TintwickProcess program(desktop);
    // Had something waited for the bus, it would give up after 25 seconds, and the test after 20.
    QVERIFY(program.waitForTrayIcon());
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    desktop.click();
    QVERIFY(waitUntil([&] { return program.history().size() == 1; }));
    QVERIFY(program.openMenu());
    program.chooseQuit();
    QCOMPARE(program.process().waitForEnd(), std::optional<int>(0));
}

void OutcomeTest::quitEndsTheProgramWithSuccess()
{
    PrivateDesktop desktop({});
    TintwickProcess program(desktop);
    QVERIFY(program.openMenu());
    program.chooseQuit();
    QCOMPARE(program.process().waitForEnd(), std::optional<int>(0));
    QCOMPARE(program.process().standardError(), QByteArray());
}

void OutcomeTest::unsupportedDesktopsAreReportedInOneLine_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::newRow("no Wayland compositor at the named display")
        << QStringLiteral("WAYLAND_DISPLAY") << QStringLiteral("wayland-0");
    QTest::newRow("a Wayland session without a compositor")
        << QStringLiteral("XDG_SESSION_TYPE") << QStringLiteral("wayland");
    QTest::newRow("no display is named") << QStringLiteral("DISPLAY") << QString();
    QTest::newRow("no server at the named display") << QStringLiteral("DISPLAY") << QStringLiteral(":29999");
}

void OutcomeTest::unsupportedDesktopsAreReportedInOneLine()
{
    QFETCH(const QString, variable);
    QFETCH(const QString, value);
    PrivateDesktop desktop({.windowManager = false, .tray = false});
    QProcessEnvironment environment;
    environment.insert(variable, value);
    TintwickProcess program(desktop, environment);
    const auto status = program.process().waitForEnd();
    QVERIFY(status.has_value());
    QVERIFY(*status > 0);
    const QByteArray error = program.process().standardError();
    QCOMPARE(error.count('\n'), 1);
    QVERIFY(error.endsWith('\n') && error.size() > 20);
    QCOMPARE(program.process().standardOutput(), QByteArray());
    QVERIFY(!QFile::exists(program.dataFolder()));
}

QTEST_GUILESS_MAIN(OutcomeTest)
#include "OutcomeTest.moc"

#include "support/WaitUntil.h"
#include "support/wayland/KWinDesktop.h"
#include "wayland/WaylandTintwick.h"

#include <linux/input-event-codes.h>

#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

using Pixel = WaylandDesktop::Pixel;

const Pixel middle{0, {640, 400}};

/// Starts a service of this machine, which the private bus does not know. Returns when it is on the bus.
std::unique_ptr<RunningProgram> startService(WaylandDesktop& desktop, const QString& name)
{
    QFile file(u"/usr/share/dbus-1/services/%1.service"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return nullptr;
    }
    static const QRegularExpression exec(u"^Exec=(\\S+)"_s, QRegularExpression::MultilineOption);
    QProcessEnvironment additions;
    additions.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    auto service = desktop.start(exec.match(QString::fromUtf8(file.readAll())).captured(1), {}, additions);
    const auto isThere = [&] {
        const auto names = desktop.start(u"gdbus"_s, {u"call"_s, u"--session"_s, u"--dest"_s,
                                                      u"org.freedesktop.DBus"_s, u"--object-path"_s, u"/"_s,
                                                      u"--method"_s, u"org.freedesktop.DBus.ListNames"_s});
        return names->waitForEnd() == 0 && names->standardOutput().contains(name.toUtf8());
    };
    return waitUntil(isThere) ? std::move(service) : nullptr;
}

} // namespace

/// Shortcuts of the desktop's portal.
class DesktopShortcutsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theKeysOfTheDesktopStartAPick();
};

void DesktopShortcutsTest::theKeysOfTheDesktopStartAPick()
{
    KWinDesktop desktop({.mayTakeScreenshots = {QStringLiteral(TINTWICK_PROGRAM)}});
    const auto ofKde = startService(desktop, u"org.freedesktop.impl.portal.desktop.kde"_s);
    QVERIFY(ofKde);
    const auto portal = startService(desktop, u"org.freedesktop.portal.Desktop"_s);
    QVERIFY(portal);
    const auto picture = desktop.showPicture();
    desktop.movePointer(middle);
    WaylandTintwick program(desktop);
    // The portal needs some time after the start.
    QVERIFY(waitUntil([&] {
        desktop.typeKey(KEY_C, {KEY_LEFTALT, KEY_LEFTSHIFT});
        return waitUntil([&] { return program.showsLoupe(middle); }, std::chrono::seconds(1));
    }));
    QVERIFY(program.waitForLoupe(middle));
    desktop.typeKey(KEY_ENTER);
    QVERIFY(program.waitForPickToEnd());
    QTRY_COMPARE(program.history().size(), 1);
    // The keys start another one.
    desktop.typeKey(KEY_C, {KEY_LEFTALT, KEY_LEFTSHIFT});
    QVERIFY(program.waitForLoupe(middle));
    desktop.typeKey(KEY_ESC);
    QVERIFY(program.waitForPickToEnd());
    QCOMPARE(program.history().size(), 1);
}

QTEST_GUILESS_MAIN(DesktopShortcutsTest)
#include "DesktopShortcutsTest.moc"

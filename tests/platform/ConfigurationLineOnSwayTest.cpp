#include "ConfigurationFormat.h"
#include "KeyCode.h"
#include "WaylandKeyboardLayout.h"
#include "support/WaitUntil.h"
#include "support/wayland/SwayDesktop.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <linux/input-event-codes.h>

#include <sys/stat.h>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

constexpr int all = modifier::super | modifier::control | modifier::alt | modifier::shift;

/// A program in a folder that every user can enter, because sway does not run as root. Its name needs quotes in a shell.
class NotingProgram final
{
public:
    NotingProgram()
        : m_folder(u"/tmp/tintwick line-XXXXXX"_s)
    {
        QFile program(path());
        if (!program.open(QIODevice::WriteOnly) ||
            program.write("#!/bin/sh\nprintf '%s\\n' \"$*\" >> \"${0%/*}/calls\"\n") < 0) {
            qFatal("cannot write a program");
        }
        program.close();
        ::chmod(QFile::encodeName(path()).constData(), 0755);
        ::chmod(QFile::encodeName(m_folder.path()).constData(), 0777);
    }

    [[nodiscard]] QString path() const { return m_folder.filePath(u"tintwick"_s); }
    /// The arguments of each call, one line each.
    [[nodiscard]] QByteArray calls() const
    {
        QFile file(m_folder.filePath(u"calls"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

class ConfigurationLineOnSwayTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePressedKeysStartTheCommand_data();
    void thePressedKeysStartTheCommand();
};

void ConfigurationLineOnSwayTest::thePressedKeysStartTheCommand_data()
{
    using Keys = std::vector<std::uint32_t>;
    QTest::addColumn<int>("keyCode");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<Keys>("keys");
    QTest::newRow("the default") << keycode::c << (modifier::alt | modifier::shift)
                                 << Keys{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C};
    QTest::newRow("all modifiers") << keycode::returnKey << all
                                   << Keys{KEY_LEFTMETA, KEY_LEFTCTRL, KEY_LEFTALT, KEY_LEFTSHIFT, KEY_ENTER};
    QTest::newRow("a key alone") << keycode::print << 0 << Keys{KEY_SYSRQ};
    QTest::newRow("a sign") << keycode::comma << modifier::super << Keys{KEY_LEFTMETA, KEY_COMMA};
}

void ConfigurationLineOnSwayTest::thePressedKeysStartTheCommand()
{
    QFETCH(const int, keyCode);
    QFETCH(const int, modifiers);
    QFETCH(const std::vector<std::uint32_t>, keys);
    const NotingProgram program;
    const WaylandKeyboardLayout layout;
    const auto symbolName = layout.symbolNameForKey(keyCode);
    QVERIFY(symbolName);
    SwayDesktop desktop({});
    desktop.command(
        configurationLine(ConfigurationFormat::Sway, {program.path(), u"pick"_s}, {*symbolName, modifiers})
            .text);
    // The first key after the start may be lost.
    const bool isCalled = waitUntil([&] {
        for (const std::uint32_t key : keys) {
            desktop.setKey(key, true);
        }
        for (const std::uint32_t key : keys) {
            desktop.setKey(key, false);
        }
        return program.calls().startsWith("pick\n");
    });
    QVERIFY2(isCalled, program.calls().constData());
}

QTEST_GUILESS_MAIN(ConfigurationLineOnSwayTest)
#include "ConfigurationLineOnSwayTest.moc"

#include "ConfigurationFormat.h"
#include "KeyCode.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tintwick::ConfigurationFormat)

namespace {

constexpr int altShift = modifier::alt | modifier::shift;
constexpr int all = modifier::super | modifier::control | altShift;
const QStringList pick{u"tintwick"_s, u"pick"_s};
const QStringList oddCommand{uR"(/opt/a "b" & c's\d/tintwick)"_s, u"pick"_s};

} // namespace

class ConfigurationFormatTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theSessionNamesItsFormat_data();
    void theSessionNamesItsFormat();
    void aSocketThatIsGoneNamesNothing();
    void theLineBindsTheCommandToTheKeys_data();
    void theLineBindsTheCommandToTheKeys();
    void theHintNamesThePlace_data();
    void theHintNamesThePlace();
    void aFolderOfConfigurationElsewhereIsNamed();
    void portalsReadTheTrigger_data();
    void portalsReadTheTrigger();
};

void ConfigurationFormatTest::initTestCase()
{
    qputenv("HOME", "/home/user");
    qunsetenv("XDG_CONFIG_HOME");
}

void ConfigurationFormatTest::theSessionNamesItsFormat_data()
{
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<ConfigurationFormat>("format");
    const auto row = [](const char* name, const QStringList& variables, ConfigurationFormat format) {
        QTest::newRow(name) << variables << format;
    };
    using Format = ConfigurationFormat;
    row("nothing", {}, Format::Unknown);
    row("sway by name", {u"XDG_CURRENT_DESKTOP=sway"_s}, Format::Sway);
    row("sway by socket", {u"SWAYSOCK=sway-ipc.sock"_s}, Format::Sway);
    row("sway with a name of its family", {u"XDG_CURRENT_DESKTOP=sway:wlroots"_s}, Format::Sway);
    row("sway under another name", {u"XDG_CURRENT_DESKTOP=Unity"_s, u"SWAYSOCK=sway-ipc.sock"_s},
        Format::Sway);
    row("Hyprland by name", {u"XDG_CURRENT_DESKTOP=Hyprland"_s}, Format::Hyprland);
    row("Hyprland by signature", {u"HYPRLAND_INSTANCE_SIGNATURE=v0.40_17"_s}, Format::Hyprland);
    row("niri by name", {u"XDG_CURRENT_DESKTOP=niri"_s}, Format::Niri);
    row("niri by socket", {u"NIRI_SOCKET=niri.sock"_s}, Format::Niri);
    row("river", {u"XDG_CURRENT_DESKTOP=river"_s}, Format::River);
    row("labwc by name", {u"XDG_CURRENT_DESKTOP=labwc:wlroots"_s}, Format::Labwc);
    row("labwc by process", {u"LABWC_PID=4711"_s}, Format::Labwc);
    row("GNOME", {u"XDG_CURRENT_DESKTOP=GNOME"_s}, Format::Gnome);
    row("GNOME of a distribution", {u"XDG_CURRENT_DESKTOP=ubuntu:GNOME"_s}, Format::Gnome);
    row("GNOME with a socket of another session",
        {u"XDG_CURRENT_DESKTOP=GNOME"_s, u"SWAYSOCK=sway-ipc.sock"_s}, Format::Gnome);
    row("KDE", {u"XDG_CURRENT_DESKTOP=KDE"_s}, Format::Unknown);
    row("an empty socket", {u"SWAYSOCK="_s}, Format::Unknown);
    row("a name that only contains one", {u"XDG_CURRENT_DESKTOP=swayfx-like"_s}, Format::Unknown);
}

void ConfigurationFormatTest::theSessionNamesItsFormat()
{
    QFETCH(const QStringList, variables);
    QProcessEnvironment session;
    for (const QString& variable : variables) {
        session.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
    }
    QTEST(configurationFormat(session), "format");
}

void ConfigurationFormatTest::aSocketThatIsGoneNamesNothing()
{
    const QTemporaryDir folder;
    QFile socket(folder.filePath(u"sway-ipc.sock"_s));
    QProcessEnvironment session;
    session.insert(u"SWAYSOCK"_s, socket.fileName());
    QCOMPARE(configurationFormat(session), ConfigurationFormat::Unknown);
    QVERIFY(socket.open(QIODevice::WriteOnly));
    QCOMPARE(configurationFormat(session), ConfigurationFormat::Sway);
}

void ConfigurationFormatTest::theLineBindsTheCommandToTheKeys_data()
{
    QTest::addColumn<ConfigurationFormat>("format");
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QString>("symbolName");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("line");
    using Format = ConfigurationFormat;
    const auto row = [](const char* name, Format format, const QStringList& command,
                        const QString& symbolName, int modifiers, const QString& line) {
        QTest::newRow(name) << format << command << symbolName << modifiers << line;
    };
    row("sway", Format::Sway, pick, u"c"_s, altShift, u"bindsym Mod1+Shift+c exec tintwick pick"_s);
    row("sway, all modifiers", Format::Sway, pick, u"Return"_s, all,
        u"bindsym Mod4+Ctrl+Mod1+Shift+Return exec tintwick pick"_s);
    row("sway, no modifiers", Format::Sway, pick, u"Print"_s, 0, u"bindsym Print exec tintwick pick"_s);
    row("sway, odd path", Format::Sway, oddCommand, u"c"_s, altShift,
        uR"(bindsym Mod1+Shift+c exec /opt/a\ \"b\"\ \&\ c\'s\\d/tintwick pick)"_s);
    row("Hyprland", Format::Hyprland, pick, u"c"_s, altShift, u"bind = ALT SHIFT, C, exec, tintwick pick"_s);
    row("Hyprland, all modifiers", Format::Hyprland, pick, u"Return"_s, all,
        u"bind = SUPER CTRL ALT SHIFT, Return, exec, tintwick pick"_s);
    row("Hyprland, no modifiers", Format::Hyprland, pick, u"Print"_s, 0,
        u"bind = , Print, exec, tintwick pick"_s);
    row("niri", Format::Niri, pick, u"c"_s, altShift, uR"(Alt+Shift+C { spawn "tintwick" "pick"; })"_s);
    row("niri, all modifiers", Format::Niri, pick, u"Return"_s, all,
        uR"(Super+Ctrl+Alt+Shift+Return { spawn "tintwick" "pick"; })"_s);
    row("niri, no modifiers", Format::Niri, pick, u"Print"_s, 0, uR"(Print { spawn "tintwick" "pick"; })"_s);
    row("niri, odd path", Format::Niri, oddCommand, u"c"_s, altShift,
        uR"(Alt+Shift+C { spawn "/opt/a \"b\" & c's\\d/tintwick" "pick"; })"_s);
    row("river", Format::River, pick, u"c"_s, altShift,
        u"riverctl map normal Alt+Shift C spawn 'tintwick pick'"_s);
    row("river, all modifiers", Format::River, pick, u"Return"_s, all,
        u"riverctl map normal Super+Control+Alt+Shift Return spawn 'tintwick pick'"_s);
    row("river, no modifiers", Format::River, pick, u"Print"_s, 0,
        u"riverctl map normal None Print spawn 'tintwick pick'"_s);
    row("river, odd path", Format::River, oddCommand, u"c"_s, altShift,
        uR"(riverctl map normal Alt+Shift C spawn '/opt/a\ \"b\"\ \&\ c\'\''s\\d/tintwick pick')"_s);
    row("labwc", Format::Labwc, pick, u"c"_s, altShift,
        uR"(<keybind key="A-S-c"><action name="Execute" command="tintwick pick"/></keybind>)"_s);
    row("labwc, all modifiers", Format::Labwc, pick, u"Return"_s, all,
        uR"(<keybind key="W-C-A-S-Return"><action name="Execute" command="tintwick pick"/></keybind>)"_s);
    row("labwc, odd path", Format::Labwc, {u"/opt/a&b/tintwick"_s, u"pick"_s}, u"c"_s, altShift,
        uR"(<keybind key="A-S-c"><action name="Execute" command="/opt/a\&amp;b/tintwick pick"/></keybind>)"_s);
    row("GNOME", Format::Gnome, pick, u"c"_s, altShift, u"tintwick pick"_s);
    row("unknown", Format::Unknown, pick, u"c"_s, altShift, u"tintwick pick"_s);
    row("unknown, panel", Format::Unknown, {u"tintwick"_s, u"panel"_s}, u"p"_s, altShift,
        u"tintwick panel"_s);
}

void ConfigurationFormatTest::theLineBindsTheCommandToTheKeys()
{
    QFETCH(const ConfigurationFormat, format);
    QFETCH(const QStringList, command);
    QFETCH(const QString, symbolName);
    QFETCH(const int, modifiers);
    QTEST(configurationLine(format, command, {symbolName, modifiers}).text, "line");
}

void ConfigurationFormatTest::theHintNamesThePlace_data()
{
    QTest::addColumn<ConfigurationFormat>("format");
    QTest::addColumn<QString>("hint");
    using Format = ConfigurationFormat;
    QTest::newRow("sway") << Format::Sway << u"Add a line to ~/.config/sway/config and reload sway."_s;
    QTest::newRow("Hyprland") << Format::Hyprland << u"Add a line to ~/.config/hypr/hyprland.conf."_s;
    QTest::newRow("niri") << Format::Niri << u"Add a line to “binds” in ~/.config/niri/config.kdl."_s;
    QTest::newRow("river") << Format::River << u"Add a line to ~/.config/river/init and log in again."_s;
    QTest::newRow("labwc") << Format::Labwc
                           << u"Add a line to <keyboard> in ~/.config/labwc/rc.xml and reconfigure labwc."_s;
    QTest::newRow("GNOME") << Format::Gnome
                           << u"In Settings, Keyboard, add a custom shortcut with this command, "
                              "for example Alt+Shift+C."_s;
    QTest::newRow("unknown") << Format::Unknown
                             << u"Bind a command to keys in the settings of the desktop."_s;
}

void ConfigurationFormatTest::theHintNamesThePlace()
{
    QFETCH(const ConfigurationFormat, format);
    QTEST(configurationLine(format, pick, {u"c"_s, altShift}).hint, "hint");
}

void ConfigurationFormatTest::aFolderOfConfigurationElsewhereIsNamed()
{
    qputenv("XDG_CONFIG_HOME", "/etc/user");
    const QString hint = configurationLine(ConfigurationFormat::Hyprland, pick, {u"c"_s, altShift}).hint;
    qunsetenv("XDG_CONFIG_HOME");
    QCOMPARE(hint, u"Add a line to /etc/user/hypr/hyprland.conf."_s);
}

void ConfigurationFormatTest::portalsReadTheTrigger_data()
{
    QTest::addColumn<QString>("symbolName");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("trigger");
    QTest::newRow("default") << u"c"_s << altShift << u"ALT+SHIFT+c"_s;
    QTest::newRow("all modifiers") << u"Return"_s << all << u"LOGO+CTRL+ALT+SHIFT+Return"_s;
    QTest::newRow("no modifiers") << u"Print"_s << 0 << u"Print"_s;
}

void ConfigurationFormatTest::portalsReadTheTrigger()
{
    QFETCH(const QString, symbolName);
    QFETCH(const int, modifiers);
    QTEST(triggerOf({symbolName, modifiers}), "trigger");
}

QTEST_GUILESS_MAIN(ConfigurationFormatTest)
#include "ConfigurationFormatTest.moc"

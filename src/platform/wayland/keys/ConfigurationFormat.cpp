#include "ConfigurationFormat.h"

#include "KeyCode.h"
#include "ShellCommand.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QString tr(const char* text)
{
    return QCoreApplication::translate("ConfigurationFormat", text);
}

/// A format's words for the modifiers, in the order in which its users write them.
struct ModifierWords
{
    QLatin1StringView super;
    QLatin1StringView control;
    QLatin1StringView alt;
    QLatin1StringView shift;

    [[nodiscard]] QStringList of(int modifiers) const
    {
        QStringList words;
        const auto add = [&](int mask, QLatin1StringView word) {
            if ((modifiers & mask) != 0) {
                words.append(word);
            }
        };
        add(modifier::super, super);
        add(modifier::control, control);
        add(modifier::alt, alt);
        add(modifier::shift, shift);
        return words;
    }
};

/// Letters as they are printed on keys.
QString capital(const QString& symbolName)
{
    return symbolName.size() == 1 ? symbolName.toUpper() : symbolName;
}

/// "Alt+Shift+C".
QString plusText(const LineKeys& keys)
{
    constexpr ModifierWords words{"Super"_L1, "Ctrl"_L1, "Alt"_L1, "Shift"_L1};
    return (words.of(keys.modifiers) << capital(keys.symbolName)).join(u'+');
}

QString swayLine(const QStringList& command, const LineKeys& keys)
{
    constexpr ModifierWords words{"Mod4"_L1, "Ctrl"_L1, "Mod1"_L1, "Shift"_L1};
    return u"bindsym %1 exec %2"_s.arg((words.of(keys.modifiers) << keys.symbolName).join(u'+'),
                                       shellCommand(command));
}

QString hyprlandLine(const QStringList& command, const LineKeys& keys)
{
    constexpr ModifierWords words{"SUPER"_L1, "CTRL"_L1, "ALT"_L1, "SHIFT"_L1};
    return u"bind = %1, %2, exec, %3"_s.arg(words.of(keys.modifiers).join(u' '), capital(keys.symbolName),
                                            shellCommand(command));
}

QString niriLine(const QStringList& command, const LineKeys& keys)
{
    QStringList words;
    for (QString word : command) {
        words.append(u'"' + word.replace(u'\\', uR"(\\)"_s).replace(u'"', uR"(\")"_s) + u'"');
    }
    return u"%1 { spawn %2; }"_s.arg(plusText(keys), words.join(u' '));
}

QString riverLine(const QStringList& command, const LineKeys& keys)
{
    constexpr ModifierWords words{"Super"_L1, "Control"_L1, "Alt"_L1, "Shift"_L1};
    const QStringList modifiers = words.of(keys.modifiers);
    return u"riverctl map normal %1 %2 spawn %3"_s.arg(modifiers.isEmpty() ? u"None"_s : modifiers.join(u'+'),
                                                       capital(keys.symbolName),
                                                       quotedWord(shellCommand(command)));
}

QString labwcLine(const QStringList& command, const LineKeys& keys)
{
    constexpr ModifierWords words{"W"_L1, "C"_L1, "A"_L1, "S"_L1};
    return uR"(<keybind key="%1"><action name="Execute" command="%2"/></keybind>)"_s.arg(
        (words.of(keys.modifiers) << keys.symbolName).join(u'-'), shellCommand(command).toHtmlEscaped());
}

/// Whether the value of a compositor's variable may be of this session. A service manager may keep the variables of an
/// earlier session, whose socket is gone.
bool isCurrent(const QString& value)
{
    return !value.isEmpty() && (!value.startsWith(u'/') || QFileInfo::exists(value));
}

/// The path of a file in the user's configuration, as the user writes it.
QString configurationFile(const QString& name)
{
    const QString path =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' + name;
    const QString home = QDir::homePath() + u'/';
    return path.startsWith(home) ? u"~/"_s + path.mid(home.size()) : path;
}

} // namespace

ConfigurationFormat configurationFormat(const QProcessEnvironment& session)
{
    constexpr struct
    {
        QLatin1StringView desktop;
        QLatin1StringView variable;
        ConfigurationFormat format = ConfigurationFormat::Unknown;
    } rows[] = {
        {"sway"_L1, "SWAYSOCK"_L1, ConfigurationFormat::Sway},
        {"Hyprland"_L1, "HYPRLAND_INSTANCE_SIGNATURE"_L1, ConfigurationFormat::Hyprland},
        {"niri"_L1, "NIRI_SOCKET"_L1, ConfigurationFormat::Niri},
        {"river"_L1, {}, ConfigurationFormat::River},
        {"labwc"_L1, "LABWC_PID"_L1, ConfigurationFormat::Labwc},
        {"GNOME"_L1, {}, ConfigurationFormat::Gnome},
    };
    const QStringList desktops = session.value(u"XDG_CURRENT_DESKTOP"_s).split(u':', Qt::SkipEmptyParts);
    for (const auto& row : rows) {
        if (desktops.contains(row.desktop, Qt::CaseInsensitive)) {
            return row.format;
        }
    }
    for (const auto& row : rows) {
        if (!row.variable.isEmpty() && isCurrent(session.value(row.variable))) {
            return row.format;
        }
    }
    return ConfigurationFormat::Unknown;
}

ConfigurationLine configurationLine(ConfigurationFormat format, const QStringList& command,
                                    const LineKeys& keys)
{
    const auto inFile = [](const char* hint, const QString& file) {
        return tr(hint).arg(configurationFile(file));
    };
    switch (format) {
    case ConfigurationFormat::Sway:
        return {swayLine(command, keys), inFile("Add a line to %1 and reload sway.", u"sway/config"_s)};
    case ConfigurationFormat::Hyprland:
        return {hyprlandLine(command, keys), inFile("Add a line to %1.", u"hypr/hyprland.conf"_s)};
    case ConfigurationFormat::Niri:
        return {niriLine(command, keys), inFile("Add a line to “binds” in %1.", u"niri/config.kdl"_s)};
    case ConfigurationFormat::River:
        return {riverLine(command, keys), inFile("Add a line to %1 and log in again.", u"river/init"_s)};
    case ConfigurationFormat::Labwc:
        return {labwcLine(command, keys),
                inFile("Add a line to <keyboard> in %1 and reconfigure labwc.", u"labwc/rc.xml"_s)};
    case ConfigurationFormat::Gnome:
        return {shellCommand(command),
                tr("In Settings, Keyboard, add a custom shortcut with this command, for example %1.")
                    .arg(plusText(keys))};
    case ConfigurationFormat::Unknown:
        break;
    }
    return {shellCommand(command), tr("Bind a command to keys in the settings of the desktop.")};
}

QString triggerOf(const LineKeys& keys)
{
    constexpr ModifierWords words{"LOGO"_L1, "CTRL"_L1, "ALT"_L1, "SHIFT"_L1};
    return (words.of(keys.modifiers) << keys.symbolName).join(u'+');
}

} // namespace tintwick

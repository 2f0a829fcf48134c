#include "ManPage.h"

#include "CommandTable.h"
#include "HelpText.h"

#include <QStringList>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// Text that roff prints as it is.
QString escaped(QStringView text)
{
    QString result;
    for (const QChar character : text) {
        switch (character.unicode()) {
        case u'\\':
            result += u"\\e";
            break;
        case u'-':
            result += u"\\-";
            break;
        case u'…':
            result += u"...";
            break;
        case u'\'':
            result += u"\\(aq";
            break;
        case u'"':
            result += u"\\(dq";
            break;
        default:
            result += character;
        }
    }
    // A leading dot would begin a request.
    return result.startsWith(u'.') ? u"\\&"_s + result : result;
}

QString section(const QString& title)
{
    return u".SH "_s + title + u'\n';
}

QString options(std::span<const OptionInfo> table)
{
    QString text;
    for (const OptionInfo& option : table) {
        QString flags = u"\\fB\\-\\-"_s + escaped(option.name) + u"\\fR"_s;
        if (!option.shortName.isEmpty()) {
            flags = u"\\fB\\-"_s + option.shortName.toString() + u"\\fR, "_s + flags;
        }
        if (!option.value.isEmpty()) {
            flags += u" \\fI"_s + option.value.toString() + u"\\fR"_s;
        }
        text += u".TP\n"_s + flags + u'\n' + escaped(option.help) + u".\n"_s;
    }
    return text;
}

QString commands()
{
    QString text;
    for (const CommandInfo& command : allCommands()) {
        const QString line = escaped(synopsis(command));
        text += u".SS "_s + line + u'\n' + escaped(command.summary) + u".\n.PP\n"_s +
                escaped(command.description) + u'\n' + options(command.options);
    }
    return text;
}

QString exitStatus()
{
    QString text;
    for (const ExitStatus& status : exitStatuses()) {
        text += u".TP\n\\fB%1\\fR\n%2\n"_s.arg(status.code).arg(escaped(status.meaning));
    }
    return text;
}

QString files()
{
    return u".TP\n\\fI$XDG_DATA_HOME/Tintwick/data.json\\fR\nThe history and the palettes; by default below "
           u"\\fI~/.local/share\\fR.\n"
           u".TP\n\\fI$XDG_CONFIG_HOME/Tintwick/Tintwick.conf\\fR\nThe preferences; by default below "
           u"\\fI~/.config\\fR.\n"_s;
}

QString examples()
{
    return u".TP\nPick a color and use it as the color of the terminal's cursor:\n"
           u"printf \\(aq\\e033]12;%s\\e007\\(aq \\(dq$(tintwick pick)\\(dq\n"
           u".TP\nWrite a palette as CSS:\n"
           u"tintwick export css \\-\\-palette Brand \\-o brand.css\n"
           u".TP\nConvert a token to a color function:\n"
           u"tintwick convert blue\\-500 \\-\\-format RGB\n"_s;
}

} // namespace

QByteArray manPage(const QString& version)
{
    return (u".TH TINTWICK 1 \"\" \"Tintwick "_s + version + u"\" \"User Commands\"\n"_s +
            section(u"NAME"_s) + u"tintwick \\- pick colors from the screen\n"_s + section(u"SYNOPSIS"_s) +
            u".B tintwick\n[\\fICOMMAND\\fR] [\\fIOPTION\\fR]...\n"_s + section(u"DESCRIPTION"_s) +
            u"Tintwick runs in the tray. A global shortcut shows a loupe that magnifies the pixels around "
            u"the "
            u"pointer; a click copies the color of one pixel as text.\n"_s +
            section(u"COMMANDS"_s) + commands() + section(u"OPTIONS OF ALL COMMANDS"_s) +
            options(commonOptions()) + section(u"EXIT STATUS"_s) + exitStatus() + section(u"FILES"_s) +
            files() + section(u"EXAMPLES"_s) + examples())
        .toUtf8();
}

} // namespace tintwick

#include "HelpText.h"

#include "CommandTable.h"
#include "ExportFormat.h"

#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

using Rows = std::vector<std::pair<QString, QString>>;

/// Two columns, the second aligned.
QString table(const Rows& rows)
{
    qsizetype width = 0;
    for (const auto& row : rows) {
        width = std::max(width, row.first.size());
    }
    QString text;
    for (const auto& [first, second] : rows) {
        text += u"  "_s + first.leftJustified(width) + u"  "_s + second + u'\n';
    }
    return text;
}

void append(Rows& rows, std::span<const OptionInfo> options)
{
    for (const OptionInfo& option : options) {
        rows.emplace_back(synopsis(option), option.help.toString());
    }
}

} // namespace

QString helpText()
{
    Rows commands;
    for (const CommandInfo& command : allCommands()) {
        if (command.name.isEmpty()) {
            continue;
        }
        const QString name = u"%1 %2"_s.arg(command.name, command.arguments).trimmed();
        commands.emplace_back(name, command.summary.toString());
    }
    const CommandInfo& start = commandOf(CommandId::Start);
    Rows options;
    append(options, start.options);
    append(options, commonOptions());
    return u"usage: tintwick [COMMAND] [OPTION]…\n\n"_s + start.summary.toString() + u".\n\ncommands:\n"_s +
           table(commands) + u"\noptions:\n"_s + table(options) +
           u"\n'tintwick COMMAND --help' describes a command.\n"_s;
}

QString helpText(const CommandInfo& command)
{
    Rows options;
    append(options, command.options);
    append(options, commonOptions());
    const QString types = command.completion == Completion::ExportType
                              ? u"types:\n  %1\n\n"_s.arg(exportFormatWords(u", "_s))
                              : QString();
    return u"usage: "_s + synopsis(command) + u"\n\n"_s + command.summary.toString() + u".\n\n"_s + types +
           u"options:\n"_s + table(options);
}

QString synopsis(const CommandInfo& command)
{
    QStringList words{u"tintwick"_s};
    for (const QStringView word : {command.name, QStringView(u"[OPTION]…"), command.arguments}) {
        if (!word.isEmpty()) {
            words.append(word.toString());
        }
    }
    return words.join(u' ');
}

QString synopsis(const OptionInfo& option)
{
    QString text = option.shortName.isEmpty() ? u"    "_s : u"-%1, "_s.arg(option.shortName);
    text += u"--"_s + option.name.toString();
    return option.value.isEmpty() ? text : text + u' ' + option.value.toString();
}

} // namespace tintwick

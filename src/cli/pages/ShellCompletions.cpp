#include "ShellCompletions.h"

#include "CommandLine.h"
#include "CommandTable.h"
#include "ExportFormat.h"

#include <QStringList>

#include <vector>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QStringList formatWords()
{
    QStringList words;
    for (const ColorFormat format : allColorFormats) {
        words.append(optionOf(format));
    }
    return words;
}

/// The words that complete a value; empty for files and for values that cannot be completed.
QStringList wordsOf(Completion completion)
{
    switch (completion) {
    case Completion::Format:
        return formatWords();
    case Completion::ExportType:
        return exportFormatWords(u" "_s).split(u' ');
    case Completion::Nothing:
    case Completion::File:
        return {};
    }
    Q_UNREACHABLE();
}

QStringList commandWords()
{
    QStringList words;
    for (const CommandInfo& command : allCommands()) {
        if (!command.name.isEmpty()) {
            words.append(command.name.toString());
        }
    }
    return words;
}

/// The options of a command and those of all commands.
std::vector<OptionInfo> optionsOf(const CommandInfo& command)
{
    std::vector<OptionInfo> options(command.options.begin(), command.options.end());
    options.insert(options.end(), commonOptions().begin(), commonOptions().end());
    return options;
}

QStringList flagsOf(const OptionInfo& option)
{
    QStringList flags{u"--%1"_s.arg(option.name)};
    if (!option.shortName.isEmpty()) {
        flags.append(u"-%1"_s.arg(option.shortName));
    }
    return flags;
}

/// A text between single quotes of a shell.
QString quoted(QString text)
{
    return u'\'' + text.replace(u'\'', u"'\\''"_s) + u'\'';
}

QString bashValues()
{
    QString text;
    for (const CommandInfo& command : allCommands()) {
        for (const OptionInfo& option : command.options) {
            if (option.value.isEmpty()) {
                continue;
            }
            const QString reply = option.completion == Completion::File
                                      ? u"$(compgen -f -- \"$current\")"_s
                                      : u"$(compgen -W %1 -- \"$current\")"_s.arg(
                                            quoted(wordsOf(option.completion).join(u' ')));
            for (const QString& flag : flagsOf(option)) {
                text += u"        %1:%2) mapfile -t COMPREPLY < <(%3); return ;;\n"_s.arg(
                    command.name, flag, reply.mid(2, reply.size() - 3));
            }
        }
    }
    return text;
}

QString bashWords()
{
    QString text;
    for (const CommandInfo& command : allCommands()) {
        QStringList words = command.name.isEmpty() ? commandWords() : wordsOf(command.completion);
        for (const OptionInfo& option : optionsOf(command)) {
            words += flagsOf(option);
        }
        text += u"        %1) words=%2 ;;\n"_s.arg(command.name.isEmpty() ? u"''"_s : command.name.toString(),
                                                   quoted(words.join(u' ')));
    }
    return text;
}

QString zshOption(const OptionInfo& option)
{
    QString value;
    if (!option.value.isEmpty()) {
        const QString action = option.completion == Completion::File
                                   ? u"_files"_s
                                   : u'(' + wordsOf(option.completion).join(u' ') + u')';
        value = u':' + option.value.toString().toLower() + u':' + action;
    }
    const QString help = option.help.toString().replace(u':', u"\\:"_s);
    const QStringList flags = flagsOf(option);
    QString text;
    for (const QString& flag : flags) {
        text += u' ' + quoted(u"(%1)%2[%3]%4"_s.arg(flags.join(u' '), flag, help, value));
    }
    return text;
}

QString zshCommand(const CommandInfo& command)
{
    QString arguments;
    for (const OptionInfo& option : optionsOf(command)) {
        arguments += zshOption(option);
    }
    const QStringList words = wordsOf(command.completion);
    if (!words.isEmpty()) {
        arguments += u' ' + quoted(u"1:%1:(%2)"_s.arg(command.name, words.join(u' ')));
    } else if (command.mostArguments > 0) {
        arguments += u' ' + quoted(u"*:%1:"_s.arg(command.arguments.toString().toLower()));
    }
    return arguments;
}

QString fishOption(const QString& condition, const OptionInfo& option)
{
    QString line = u"complete -c tintwick -n %1 -l %2"_s.arg(quoted(condition), option.name);
    if (!option.shortName.isEmpty()) {
        line += u" -s %1"_s.arg(option.shortName);
    }
    if (!option.value.isEmpty()) {
        line += option.completion == Completion::File ? u" -r -F"_s : u" -x"_s;
        const QStringList words = wordsOf(option.completion);
        if (!words.isEmpty()) {
            line += u" -a "_s + quoted(words.join(u' '));
        }
    }
    return line + u" -d "_s + quoted(option.help.toString()) + u'\n';
}

} // namespace

QByteArray bashCompletion()
{
    return (u"# bash completion for tintwick\n"
            u"_tintwick() {\n"
            u"    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' "
            u"words\n"
            u"    ((COMP_CWORD > 1)) && command=${COMP_WORDS[1]}\n"
            u"    case $command:$previous in\n"_s +
            bashValues() +
            u"    esac\n"
            u"    case $command in\n"_s +
            bashWords() +
            u"        *) return ;;\n"
            u"    esac\n"
            u"    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
            u"}\n"
            u"complete -F _tintwick tintwick\n"_s)
        .toUtf8();
}

QByteArray zshCompletion()
{
    QString commands;
    QString cases;
    for (const CommandInfo& command : allCommands()) {
        if (!command.name.isEmpty()) {
            commands += u"        "_s + quoted(u"%1:%2"_s.arg(command.name, command.summary)) + u'\n';
            cases += u"        %1) _arguments%2 ;;\n"_s.arg(command.name, zshCommand(command));
        }
    }
    return (u"#compdef tintwick\n"
            u"_tintwick() {\n"
            u"    local -a commands\n"
            u"    commands=(\n"_s +
            commands +
            u"    )\n"
            u"    if ((CURRENT == 2)); then\n"
            u"        _describe command commands\n"
            u"        _arguments"_s +
            zshCommand(commandOf(CommandId::Start)) +
            u"\n"
            u"        return\n"
            u"    fi\n"
            u"    local command=$words[2]\n"
            u"    shift words\n"
            u"    ((CURRENT--))\n"
            u"    case $command in\n"_s +
            cases +
            u"    esac\n"
            u"}\n"
            u"_tintwick \"$@\"\n"_s)
        .toUtf8();
}

QByteArray fishCompletion()
{
    QString text = u"# fish completion for tintwick\ncomplete -c tintwick -f\n"_s;
    for (const CommandInfo& command : allCommands()) {
        const QString condition = command.name.isEmpty()
                                      ? u"__fish_use_subcommand"_s
                                      : u"__fish_seen_subcommand_from %1"_s.arg(command.name);
        if (!command.name.isEmpty()) {
            text += u"complete -c tintwick -n __fish_use_subcommand -a %1 -d %2\n"_s.arg(
                command.name, quoted(command.summary.toString()));
        }
        const QStringList words = wordsOf(command.completion);
        if (!words.isEmpty()) {
            text += u"complete -c tintwick -n %1 -a %2\n"_s.arg(quoted(condition), quoted(words.join(u' ')));
        }
        for (const OptionInfo& option : optionsOf(command)) {
            text += fishOption(condition, option);
        }
    }
    return text.toUtf8();
}

} // namespace tintwick

#include "CommandLine.h"

#include "ExportFormat.h"
#include "HelpText.h"

#include <QCommandLineParser>

#include <algorithm>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int mostPicks = 100;

using Outcome = std::variant<Invocation, InformationRequest, UsageError>;

UsageError usageError(const CommandInfo& command, const QString& problem)
{
    const QString help =
        command.name.isEmpty() ? u"tintwick --help"_s : u"tintwick %1 --help"_s.arg(command.name);
    return {u"tintwick: %1 (see %2)"_s.arg(problem, help)};
}

void add(QCommandLineParser& parser, std::span<const OptionInfo> options)
{
    for (const OptionInfo& option : options) {
        QStringList names{option.name.toString()};
        if (!option.shortName.isEmpty()) {
            names.append(option.shortName.toString());
        }
        parser.addOption({names, option.help.toString(), option.value.toString()});
    }
}

bool has(const CommandInfo& command, QStringView option)
{
    return std::ranges::find(command.options, option, &OptionInfo::name) != command.options.end();
}

QString formatNames()
{
    QStringList names;
    for (const ColorFormat format : allColorFormats) {
        names.append(optionOf(format));
    }
    return names.join(u", "_s);
}

/// Reads the values of the options into the invocation; returns what is wrong with them.
std::optional<QString> readOptions(const CommandInfo& command, const QCommandLineParser& parser,
                                   Invocation& invocation)
{
    const auto isSet = [&](const QString& name) { return has(command, name) && parser.isSet(name); };
    if (isSet(u"format"_s)) {
        const QString name = parser.value(u"format"_s);
        invocation.format = colorFormatFromOption(name);
        if (!invocation.format) {
            return u"'%1' is not a format; the formats are %2"_s.arg(name, formatNames());
        }
    }
    if (isSet(u"count"_s)) {
        bool isNumber = false;
        invocation.count = parser.value(u"count"_s).toInt(&isNumber);
        if (!isNumber || invocation.count < 1 || invocation.count > mostPicks) {
            return u"'%1' is not a number from 1 to %2"_s.arg(parser.value(u"count"_s)).arg(mostPicks);
        }
    }
    invocation.copies = !isSet(u"no-copy"_s);
    invocation.saves = !isSet(u"no-save"_s);
    invocation.isJson = isSet(u"json"_s);
    invocation.isBackground = isSet(u"background"_s);
    if (isSet(u"palette"_s)) {
        invocation.palette = parser.value(u"palette"_s);
    }
    if (isSet(u"output"_s)) {
        invocation.output = parser.value(u"output"_s);
        if (invocation.output.isEmpty()) {
            return u"the name of the output file is empty"_s;
        }
    }
    return std::nullopt;
}

std::optional<QString> problemWithArguments(const CommandInfo& command, const QStringList& arguments)
{
    if (arguments.size() < command.fewestArguments) {
        return u"%1 is missing"_s.arg(command.arguments);
    }
    if (arguments.size() > command.mostArguments) {
        return u"'%1' is one argument too many"_s.arg(arguments.at(command.mostArguments));
    }
    if (command.completion == Completion::ExportType && !exportFormatFromWord(arguments.first())) {
        return u"'%1' is not a type; the types are %2"_s.arg(arguments.first(), exportFormatWords(u", "_s));
    }
    return std::nullopt;
}

Outcome parseCommand(const CommandInfo& command, const QStringList& arguments)
{
    QCommandLineParser parser;
    add(parser, command.options);
    add(parser, commonOptions());
    // The parser expects the name of the program first.
    if (!parser.parse(QStringList(u"tintwick"_s) + arguments)) {
        QString problem = parser.errorText();
        if (problem.endsWith(u'.')) {
            problem.chop(1);
        }
        return usageError(command, problem);
    }
    if (parser.isSet(u"help"_s)) {
        return InformationRequest{command.id == CommandId::Start ? helpText() : helpText(command)};
    }
    if (parser.isSet(u"version"_s)) {
        return InformationRequest{u"tintwick " TINTWICK_VERSION "\n"_s};
    }
    Invocation invocation;
    invocation.command = command.id;
    invocation.arguments = parser.positionalArguments();
    if (const auto problem = problemWithArguments(command, invocation.arguments)) {
        return usageError(command, *problem);
    }
    if (const auto problem = readOptions(command, parser, invocation)) {
        return usageError(command, *problem);
    }
    return invocation;
}

} // namespace

std::variant<Invocation, InformationRequest, UsageError> parseCommandLine(const QStringList& arguments)
{
    const CommandInfo& start = commandOf(CommandId::Start);
    if (arguments.isEmpty() || arguments.first().startsWith(u'-') || arguments.first().isEmpty() ||
        arguments.first().contains(u'/')) {
        return parseCommand(start, arguments);
    }
    const QString& name = arguments.first();
    const auto commands = allCommands();
    const auto found = std::ranges::find(commands, QStringView(name), &CommandInfo::name);
    if (found == commands.end()) {
        return usageError(start, u"'%1' is not a command"_s.arg(name));
    }
    return parseCommand(*found, arguments.mid(1));
}

std::optional<ColorFormat> colorFormatFromOption(const QString& text)
{
    const QString wanted = QString(text).replace(u'-', u' ');
    const auto* const found = std::ranges::find_if(allColorFormats, [&](ColorFormat format) {
        return rawValue(format).compare(wanted, Qt::CaseInsensitive) == 0;
    });
    return found == allColorFormats.end() ? std::nullopt : std::optional(*found);
}

QString optionOf(ColorFormat format)
{
    return rawValue(format).replace(u' ', u'-');
}

} // namespace tintwick

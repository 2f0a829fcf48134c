#pragma once

#include "ColorFormat.h"
#include "CommandTable.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace tintwick {

/// A command with its arguments and options.
struct Invocation
{
    CommandId command = CommandId::Start;
    QStringList arguments;
    /// None: the default of the command.
    std::optional<ColorFormat> format;
    int count = 1;
    bool copies = true;
    bool saves = true;
    bool isJson = false;
    bool isBackground = false;
    /// None: the history.
    std::optional<QString> palette;
    /// "-" is standard output.
    QString output = QStringLiteral("-");
};

/// A text for standard output instead of a command.
struct InformationRequest
{
    QString text;
};

/// One line for standard error; the exit status is 2.
struct UsageError
{
    QString text;
};

/// Reads the arguments of the program, without its name.
[[nodiscard]] std::variant<Invocation, InformationRequest, UsageError>
parseCommandLine(const QStringList& arguments);

/// The format with a name as it is written on a command line: without regard to case, and a hyphen stands for a space.
[[nodiscard]] std::optional<ColorFormat> colorFormatFromOption(const QString& text);
/// The name of a format on the command line: without spaces.
[[nodiscard]] QString optionOf(ColorFormat format);

} // namespace tintwick

#pragma once

#include <QStringView>

#include <cstdint>
#include <span>

namespace tintwick {

enum class CommandId : std::uint8_t {
    Start,
    Pick,
    History,
    Palettes,
    Palette,
    Export,
    Import,
    Convert,
    Panel,
    Settings,
    Quit
};

/// What the shell completes for an option or an argument.
enum class Completion : std::uint8_t { Nothing, Format, File, ExportType };

/// One option of a command.
struct OptionInfo
{
    /// Without the hyphens.
    QStringView name;
    /// One letter, or empty.
    QStringView shortName;
    /// The placeholder of the value; empty for a switch.
    QStringView value;
    QStringView help;
    Completion completion = Completion::Nothing;
};

/// One command of the program.
struct CommandInfo
{
    CommandId id = CommandId::Start;
    /// Empty for the program without a command.
    QStringView name;
    /// Placeholders of the arguments, for example "COLOR…"; empty when there are none.
    QStringView arguments;
    int fewestArguments = 0;
    int mostArguments = 0;
    QStringView summary;
    /// A paragraph for the man page.
    QStringView description;
    std::span<const OptionInfo> options{};
    Completion completion = Completion::Nothing;
};

inline constexpr int exitCancelled = 1;
inline constexpr int exitUsage = 2;
inline constexpr int exitNotPossible = 3;

/// One exit status and what it means.
struct ExitStatus
{
    int code = 0;
    QStringView meaning;
};

/// All commands in the order of the help. The help, the man page and the completions are made from this table.
[[nodiscard]] std::span<const CommandInfo> allCommands();
[[nodiscard]] const CommandInfo& commandOf(CommandId id);
/// Options that every command has.
[[nodiscard]] std::span<const OptionInfo> commonOptions();
[[nodiscard]] std::span<const ExitStatus> exitStatuses();

} // namespace tintwick

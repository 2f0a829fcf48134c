#pragma once

#include <QString>

namespace tintwick {

struct CommandInfo;
struct OptionInfo;

/// The help of the whole program.
[[nodiscard]] QString helpText();
/// The help of one command.
[[nodiscard]] QString helpText(const CommandInfo& command);

/// How the command is called, for example "tintwick convert [OPTION]… COLOR…".
[[nodiscard]] QString synopsis(const CommandInfo& command);
/// How the option is written, for example "-f, --format FORMAT".
[[nodiscard]] QString synopsis(const OptionInfo& option);

} // namespace tintwick

#pragma once

#include <QString>

namespace tintwick {

/// The word by which a shell starts this program: its name where the shell finds the program by it, otherwise its path.
[[nodiscard]] QString programInShell();

} // namespace tintwick

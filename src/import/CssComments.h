#pragma once

#include <QString>

#include <optional>

namespace tintwick {

/// A text in CSS or SCSS with blanks for its comments, in which line breaks stay; nothing when a comment does not end. `line`
/// is then the line where it begins.
[[nodiscard]] std::optional<QString> withoutComments(QString text, qsizetype& line);

} // namespace tintwick

#pragma once

class QString;

namespace tintwick {

/// Puts text on the clipboard of the desktop.
class Clipboard final
{
public:
    /// Replaces whatever the clipboard holds by `text`, as plain text.
    void copy(const QString& text) const;
};

} // namespace tintwick

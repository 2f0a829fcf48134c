#pragma once

class QString;

namespace tintwick {

/// Puts text on the clipboard of the desktop.
class Clipboard final
{
public:
    /// Replaces the content of the clipboard by plain text.
    void copy(const QString& text) const;
};

} // namespace tintwick

#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace tintwick {

/// The characters that the keys type in the user's current layout; for a layout without Latin letters, in the layout
/// that shortcuts use.
class KeyboardLayout : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The text that a key types without modifiers, by its key code (see KeyCode.h); none when the key types nothing
    /// (dead keys, function keys) or does not exist.
    [[nodiscard]] virtual std::optional<QString> characterForKey(int keyCode) const = 0;

    /// The accent that a dead key puts on the next letter, as a character of its own; none for other keys.
    [[nodiscard]] virtual std::optional<QString> accentForKey(int keyCode) const = 0;

Q_SIGNALS:
    /// The user chose another layout or plugged in another keyboard.
    void changed();
};

} // namespace tintwick
